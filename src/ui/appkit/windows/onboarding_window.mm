#include "ui/appkit/windows/onboarding_window.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/macos/foundation/ns_text.h"
#include "ui/appkit/controls/control_action.h"
#include "ui/appkit/controls/labels.h"
#include "ui/appkit/menus/menu_builder.h"

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
constexpr NSWindowStyleMask kStyle = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable;
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
  [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
  [window_ makeKeyAndOrderFront:nil];
}

void AppKitOnboardingWindow::build() {
  window_ = [[NSWindow alloc] initWithContentRect:NSRect {} styleMask:kStyle backing:NSBackingStoreBuffered defer:YES];
  window_.releasedWhenClosed = NO;
  delegate_->willClose_ = [this] { handleClosed(); };
  window_.delegate = delegate_;
  page_ = makeColumn(kSpacing);
  page_.edgeInsets = NSEdgeInsets{kMargin, kMargin, kMargin, kMargin};
  whereItLives_ = makeWrappingLabel(kTextWidth);
  for (NSView* part :
       {makeGreeting(), steps_.view(), findings_.view(), static_cast<NSView*>(whereItLives_), makeFoot()}) {
    [page_ addArrangedSubview:part];
  }
  window_.contentView = page_;
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
  foot.alignment = NSLayoutAttributeCenterY;
  for (NSView* part : {static_cast<NSView*>(languageLabel_), static_cast<NSView*>(language_)}) {
    [foot addView:part inGravity:NSStackViewGravityLeading];
  }
  [foot addView:close_ inGravity:NSStackViewGravityTrailing];
  [foot.widthAnchor constraintEqualToConstant:kTextWidth].active = YES;
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
  // Until all steps are done, Return closes nothing.
  close_.keyEquivalent = shown.isDone ? kReturnKey : @"";
  setLayoutDirection(page_, isRightToLeft(contents_.language()));
  [window_ setContentSize:page_.fittingSize];
}

void AppKitOnboardingWindow::remindToHold() {
  if (window_ == nil) return;
  steps_.emphasize(true);
  reminder_ = mainQueue_.workItem(kEmphasis, [this] { steps_.emphasize(false); });
  [window_ orderFront:nil];
}

void AppKitOnboardingWindow::handleClosed() {
  welcomeChanged_.reset();
  refresh_.reset();
  reminder_.reset();
  findings_.onChanged = nullptr;
  window_.delegate = nil;
  // The window itself is calling, and the next call may destroy this object.
  mainQueue_.async([window = std::exchange(window_, nil)] { (void)window; });
  mainQueue_.async([delegate = delegate_] { (void)delegate; });
  const auto closed = std::move(closed_);
  if (closed) closed();
}

}  // namespace rondora::appkit
