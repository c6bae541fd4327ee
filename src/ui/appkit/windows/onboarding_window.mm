#include "ui/appkit/windows/onboarding_window.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/macos/foundation/ns_text.h"
#include "ui/appkit/controls/control_action.h"
#include "ui/appkit/controls/labels.h"
#include "ui/appkit/menus/menu_builder.h"
#include "ui/appkit/windows/page_window.h"

@interface RondoraWindowDelegate : NSObject <NSWindowDelegate>
@end

@implementation RondoraWindowDelegate {
 @public
  std::function<void()> willClose_;
}

- (void)windowWillClose:(NSNotification*)__unused notification {
  // Copies: the call may destroy this object.
  const auto willClose = willClose_;
  if (willClose) willClose();
}

@end

namespace rondora::appkit {
namespace {

using macos::nsString;

// Points.
constexpr CGFloat kMargin = 24;
constexpr CGFloat kSpacing = 14;
constexpr CGFloat kTextWidth = 520;
constexpr CGFloat kIconSide = 88;
constexpr CGFloat kHeadlineSize = 20;
constexpr double kEmphasis = 6;  // seconds
NSString* const kReturnKey = @"\r";

NSMenu* makeLanguageMenu(const std::function<void(AppLanguage)>& choose) {
  std::vector<MenuEntry> entries;
  for (const AppLanguage language : kAppLanguages) {
    MenuEntry entry;
    entry.title = nativeName(language);
    entry.action = [choose, language] { choose(language); };
    entries.push_back(std::move(entry));
  }
  return makeMenu({}, entries);
}

NSInteger placeOf(AppLanguage language) { return std::ranges::find(kAppLanguages, language) - kAppLanguages.begin(); }

}  // namespace

AppKitOnboardingWindow::AppKitOnboardingWindow(WindowContents contents, MainQueue& mainQueue)
    : contents_(std::move(contents)),
      mainQueue_(mainQueue),
      steps_(*contents_.welcome, kTextWidth),
      findings_(contents_.watchFailures, contents_.press, kTextWidth),
      delegate_([[RondoraWindowDelegate alloc] init]) {}

AppKitOnboardingWindow::~AppKitOnboardingWindow() {
  window_.delegate = nil;
  [window_ close];
}

void AppKitOnboardingWindow::present(std::function<void()> closed) {
  closed_ = std::move(closed);
  if (window_ == nil) build();
  [window_ center];
  window_.initialFirstResponder = steps_.openRing().isHidden ? close_ : steps_.openRing();
  previous_.remember();
  [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
  [window_ makeKeyAndOrderFront:nil];
  // The system may refuse to make the program active.
  [window_ orderFrontRegardless];
}

void AppKitOnboardingWindow::close() { [window_ close]; }

void AppKitOnboardingWindow::build() {
  NSStackView* page = makeColumn(kSpacing);
  page.edgeInsets = NSEdgeInsets{kMargin, kMargin, 0, kMargin};
  whereItLives_ = makeWrappingLabel(kTextWidth);
  for (NSView* part : {makeGreeting(), steps_.view(), findings_.view(), static_cast<NSView*>(whereItLives_)}) {
    [page addArrangedSubview:part];
  }
  window_ = [[RondoraPageWindow alloc] initWithPage:page foot:makeFoot()];
  delegate_->willClose_ = [this] { handleClosed(); };
  window_.delegate = delegate_;
  findings_.onChanged = [this] { refresh(); };
  refresh();
  welcomeChanged_ = contents_.welcome->onChanged([this] { refresh_ = mainQueue_.workItem(0, [this] { refresh(); }); });
}

NSView* AppKitOnboardingWindow::makeGreeting() {
  NSImageView* icon = [NSImageView imageViewWithImage:NSApplication.sharedApplication.applicationIconImage];
  icon.accessibilityElement = NO;
  [icon.widthAnchor constraintEqualToConstant:kIconSide].active = YES;
  [icon.heightAnchor constraintEqualToConstant:kIconSide].active = YES;
  constexpr CGFloat kWidth = kTextWidth - kIconSide - kMargin;
  headline_ = makeWrappingLabel(kWidth);
  headline_.font = [NSFont boldSystemFontOfSize:kHeadlineSize];
  introduction_ = makeWrappingLabel(kWidth);
  NSStackView* texts = makeColumn(kSpacing);
  [texts addArrangedSubview:headline_];
  [texts addArrangedSubview:introduction_];
  NSStackView* row = makeRow(kMargin);
  [row addArrangedSubview:icon];
  [row addArrangedSubview:texts];
  return row;
}

NSView* AppKitOnboardingWindow::makeFoot() {
  languageLabel_ = makeWrappingLabel(kTextWidth);
  language_ = [[NSPopUpButton alloc] initWithFrame:NSRect {} pullsDown:NO];
  language_.menu = makeLanguageMenu(contents_.chooseLanguage);
  close_ = [[NSButton alloc] init];
  close_.bezelStyle = NSBezelStyleRounded;
  setAction(close_, [this] { close(); });
  NSStackView* foot = makeRow(kSpacing);
  foot.edgeInsets = NSEdgeInsets{kSpacing, kMargin, kMargin, kMargin};
  foot.alignment = NSLayoutAttributeCenterY;
  for (NSView* part : {static_cast<NSView*>(languageLabel_), static_cast<NSView*>(language_)}) {
    [foot addView:part inGravity:NSStackViewGravityLeading];
  }
  [foot addView:close_ inGravity:NSStackViewGravityTrailing];
  return foot;
}

void AppKitOnboardingWindow::refresh() {
  const WelcomeContents shown = contents_.welcome->contents();
  window_.title = nsString(shown.title);
  setText(headline_, shown.headline);
  setText(introduction_, shown.introduction);
  steps_.present(shown);
  findings_.setMarkNames(shown.works, shown.fails);
  setText(whereItLives_, shown.whereItLives);
  setText(languageLabel_, shown.language);
  language_.accessibilityLabel = nsString(shown.language);
  [language_ selectItemAtIndex:placeOf(contents_.language())];
  close_.title = nsString(shown.close);
  close_.accessibilityHelp = shown.isDone ? nsString(shown.headline) : nil;
  const bool becomesDone = shown.isDone && close_.keyEquivalent.length == 0;
  // Until all steps are done, Return closes nothing.
  close_.keyEquivalent = shown.isDone ? kReturnKey : @"";
  if (becomesDone) [window_ makeFirstResponder:close_];
  setLayoutDirection(window_.contentView, isRightToLeft(contents_.language()));
  [window_ fitContents];
}

void AppKitOnboardingWindow::remindToHold() {
  if (window_ == nil) return;
  steps_.emphasize(true);
  reminder_ = mainQueue_.workItem(kEmphasis, [this] { steps_.emphasize(false); });
  [window_ orderFrontRegardless];
  [steps_.view() scrollRectToVisible:steps_.view().bounds];
}

void AppKitOnboardingWindow::handleClosed() {
  welcomeChanged_.reset();
  refresh_.reset();
  reminder_.reset();
  findings_.onChanged = nullptr;
  window_.delegate = nil;
  NSWindow* const closing = std::exchange(window_, nil);
  previous_.returnFrom(closing);
  // The window itself is calling, and the next call may destroy this object.
  mainQueue_.async([closing, delegate = delegate_] {
    (void)closing;
    (void)delegate;
  });
  const auto closed = std::move(closed_);
  if (closed) closed();
}

}  // namespace rondora::appkit
