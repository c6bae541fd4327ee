#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace rondora {

using Words = std::vector<std::string>;

/// Separated by spaces; "none" without any.
inline std::string joined(const Words& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text.empty() ? "none" : text;
}

inline std::string yesOrNo(bool value) { return value ? "yes" : "no"; }

/// The vocabulary of a kind of story, by the first word of a line.
struct Story {
  std::map<std::string, std::function<void(const Words&)>> actions;
  std::map<std::string, std::function<std::string()>> observations;
};

/// Plays fixtures/stories/FILE.txt. "story NAME" begins a story, which has an object of its own. Actions ("press
/// control space") and expectations ("= menu chord") follow, each on a line; a line that starts with "#" is a comment.
template <class AnyStory>
void playStories(const std::string& file) {
  std::ifstream stream(RONDORA_FIXTURES "/stories/" + file + ".txt");
  ASSERT_TRUE(stream) << file;
  std::unique_ptr<AnyStory> story;
  std::string name;
  for (std::string line; std::getline(stream, line);) {
    if (line.empty() || line.starts_with("#")) continue;
    std::istringstream text(line);
    Words words{std::istream_iterator<std::string>(text), {}};
    const std::string first = words.front();
    words.erase(words.begin());
    if (first == "story") {
      name = joined(words);
      story.reset();
      story = std::make_unique<AnyStory>();
      continue;
    }
    SCOPED_TRACE(file + ", " + name + ": " + line);
    if (first != "=") {
      ASSERT_TRUE(story->actions.contains(first));
      story->actions.at(first)(words);
    } else {
      const std::string expected = joined({words.begin() + 1, words.end()});
      ASSERT_TRUE(story->observations.contains(words.front()));
      EXPECT_EQ(story->observations.at(words.front())(), expected);
    }
  }
}

}  // namespace rondora
