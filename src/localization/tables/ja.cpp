#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kJapaneseStrings = completeTable({
    {StringKey::settings, "設定"},
    {StringKey::quit, "終了"},
    {StringKey::onboardingTitle, "Rondora へようこそ"},
    {StringKey::onboardingGreeting, "必要なものをすべて、ポインターの周りに"},
    {StringKey::onboardingWhatItIs,
     "Rondora は、アプリケーション、リンク、定型文などのアクションをポインターの周りにリング状に開きます。"},
    {StringKey::onboardingHowToOpen, "%@ を押すとリングが開きます。"},
    {StringKey::onboardingHowToChoose,
     "セクターを指してキーを離すか、クリックして選びます。Esc キーでリングが閉じます。"},
    {StringKey::onboardingConfigurationFile, "メニューは 1 つのファイルに保存されています：%@"},
    {StringKey::onboardingGetStarted, "はじめる"},
    {StringKey::settingsTitle, "Rondora の設定"},
    {StringKey::settingsConfigurationFile, "設定ファイル："},
    {StringKey::settingsOpenFolder, "フォルダーを開く"},
    {StringKey::settingsLanguage, "言語："},
    {StringKey::settingsHotkeyRefused, "メニュー「%@」のホットキーは、すでに別のプログラムが使用しています。"},
    {StringKey::settingsNoTray, "このデスクトップにはシステムトレイがないため、Rondora のアイコンは表示されません。"},
    {StringKey::settingsHotkeysNote,
     "グローバルホットキーはシステムの Carbon API を使用します。Fn "
     "のみ、または地球儀キーの組み合わせは登録できないことがあります。別のショートカットを選んでください。"},
    {StringKey::snippetHint, "テキストをクリップボードにコピーしました。Command+V で貼り付けてください。"},
    {StringKey::importRefused, "このファイルを読み込めませんでした。有効な設定のバックアップを選んでください。"},
});

}  // namespace rondora
