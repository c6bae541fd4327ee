#include "actions/sub_actions.h"

#include <gtest/gtest.h>

#include "doubles/fake_platform.h"

namespace rondora {
namespace {

TEST(NoSubActions, AnswersLaterThatTheFrontmostApplicationHasNoCommands) {
  FakePlatform desktop;
  NoSubActions subActions(desktop.workspace, desktop.time);
  EXPECT_FALSE(subActions.targetApp());
  const auto editor = desktop.workspace.start("editor");
  ASSERT_EQ(subActions.targetApp(), editor);
  std::optional<std::vector<PieSubAction>> answer;
  subActions.resolve(editor, [&answer](std::vector<PieSubAction> actions) { answer = std::move(actions); });
  EXPECT_FALSE(answer);
  desktop.time.runUntilIdle();
  ASSERT_TRUE(answer);
  EXPECT_TRUE(answer->empty());
}

}  // namespace
}  // namespace rondora
