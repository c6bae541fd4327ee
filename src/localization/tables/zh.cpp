#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kChineseStrings = completeTable({
    {StringKey::settings, "设置"},
    {StringKey::quit, "退出"},
    {StringKey::onboardingTitle, "欢迎使用 Rondora"},
    {StringKey::onboardingGreeting, "常用的一切，环绕在指针周围"},
    {StringKey::onboardingWhatItIs, "Rondora 会在指针周围打开一圈操作：应用程序、链接、文本片段。"},
    {StringKey::onboardingHowToOpen, "按 %@ 打开圆环。"},
    {StringKey::onboardingHowToChoose, "指向一个扇区并松开按键，或直接点击它。按 Esc 关闭圆环。"},
    {StringKey::onboardingConfigurationFile, "您的菜单保存在一个文件中：%@"},
    {StringKey::onboardingGetStarted, "开始使用"},
    {StringKey::settingsTitle, "Rondora 设置"},
    {StringKey::settingsConfigurationFile, "配置文件："},
    {StringKey::settingsOpenFolder, "打开文件夹"},
    {StringKey::settingsLanguage, "语言："},
    {StringKey::settingsHotkeyRefused, "菜单“%@”的快捷键已被其他程序占用。"},
    {StringKey::settingsNoTray, "此桌面没有系统托盘，因此不会显示 Rondora 的图标。"},
    {StringKey::settingsHotkeysNote,
     "全局快捷键使用系统的 Carbon API。仅含 Fn 或地球仪键的组合可能无法注册，请选择其他快捷键。"},
    {StringKey::snippetHint, "文本已复制到剪贴板。请按 Command+V 手动粘贴。"},
    {StringKey::importRefused, "无法读取此文件。请选择有效的设置备份。"},
});

}  // namespace rondora
