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
    {StringKey::settingsCopy, "コピー"},
    {StringKey::settingsClose, "閉じる"},
    {StringKey::settingsSession, "このセッションの状態："},
    {StringKey::sessionWorks, "動作しています"},
    {StringKey::sessionFails, "動作していません"},
    {StringKey::sessionX11, "X11 セッションです。リングはどのウィンドウの上にも開きます。"},
    {StringKey::sessionWayland,
     "Wayland セッションです。ホットキーは X11 のウィンドウにキーボードがある間だけ届き、Wayland "
     "アプリケーションのウィンドウを前面に出すことはできません。"},
    {StringKey::sessionWaylandRemedy,
     "ログイン時に X11 セッション（「Xorg」）を選ぶか、デスクトップのキーボードショートカットから D-Bus "
     "メソッド「Trigger」を呼び出してください。方法は README にあります。"},
    {StringKey::sessionHotkeysWork, "ホットキーのあるメニューは、すべてそのホットキーで開きます。"},
    {StringKey::sessionHotkeyRefusedRemedy,
     "別のプログラムまたはデスクトップのキーボード設定で %@ を解放してから Rondora "
     "を起動し直すか、設定ファイルでメニューに別のホットキーを割り当ててください。"},
    {StringKey::sessionHotkeyUnusable, "メニュー「%@」のホットキーはここでは使用できません。"},
    {StringKey::sessionHotkeyUnusableRemedy,
     "Rondora を終了し、設定ファイルでメニューに別のホットキーを割り当ててから、Rondora を起動し直してください。"},
    {StringKey::sessionTray, "Rondora のアイコンはシステムトレイにあります。"},
    {StringKey::sessionNoTrayRemedy,
     "パネルにシステムトレイを追加してください。GNOME "
     "では拡張機能「AppIndicator」が必要です。アイコンがなくても、Rondora をもう一度起動するとこの設定が開きます。"},
    {StringKey::sessionKeystrokes, "キー操作はほかのアプリケーションに届きます。"},
    {StringKey::sessionNoKeystrokes,
     "X サーバーがプログラムからのキー操作を受け付けないため、キーを押す項目は何も行いません。"},
    {StringKey::sessionNoKeystrokesRemedy, "X サーバーの XTEST 拡張を有効にしてください。"},
    {StringKey::sessionTrackpadIgnored,
     "このバージョンはまだトラックパッドのタップに対応していないため、タップしてもメニューは開きません。"},
    {StringKey::sessionTrackpadUnreadable,
     "Rondora にはトラックパッドを読み取る権限がないため、タップしてもメニューは開きません。"},
    {StringKey::sessionTrackpadIgnoredRemedy,
     "代わりにホットキーで開いてください。ホットキーは設定ファイルで割り当てられます。"},
    {StringKey::sessionTrackpadUnreadableRemedy,
     "代わりにホットキーで開いてください。ユーザーが「input」グループに属していれば、今後のバージョンでタップに対応しま"
     "す。"},
    {StringKey::snippetHint, "テキストをクリップボードにコピーしました。Command+V で貼り付けてください。"},
    {StringKey::importRefused, "このファイルを読み込めませんでした。有効な設定のバックアップを選んでください。"},
});

}  // namespace rondora
