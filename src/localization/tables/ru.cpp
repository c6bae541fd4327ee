#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kRussianStrings = completeTable({
    {StringKey::settings, "Настройки"},
    {StringKey::quit, "Завершить"},
    {StringKey::onboardingTitle, "Добро пожаловать в Rondora"},
    {StringKey::onboardingGreeting, "Всё нужное — в кольце вокруг указателя"},
    {StringKey::onboardingWhatItIs,
     "Rondora раскрывает вокруг указателя кольцо действий: приложения, ссылки, фрагменты текста."},
    {StringKey::onboardingHowToOpen, "Нажмите %@, чтобы открыть кольцо."},
    {StringKey::onboardingHowToChoose,
     "Наведите указатель на сектор и отпустите клавиши или просто щёлкните по нему. Esc закрывает кольцо."},
    {StringKey::onboardingConfigurationFile, "Ваши меню хранятся в одном файле: %@"},
    {StringKey::onboardingGetStarted, "Начать"},
    {StringKey::settingsTitle, "Настройки Rondora"},
    {StringKey::settingsConfigurationFile, "Файл конфигурации:"},
    {StringKey::settingsOpenFolder, "Открыть папку"},
    {StringKey::settingsLanguage, "Язык:"},
    {StringKey::settingsHotkeyRefused, "Сочетание клавиш меню «%@» уже занято другой программой."},
    {StringKey::settingsNoTray, "На этом рабочем столе нет области уведомлений, поэтому значок Rondora не виден."},
    {StringKey::settingsHotkeysNote,
     "Глобальные сочетания клавиш работают через системный Carbon API. Сочетания только с Fn или Globe могут не "
     "зарегистрироваться — выберите другое сочетание."},
    {StringKey::settingsCopy, "Копировать"},
    {StringKey::settingsClose, "Закрыть"},
    {StringKey::settingsSession, "В этом сеансе:"},
    {StringKey::sessionWorks, "Работает"},
    {StringKey::sessionFails, "Не работает"},
    {StringKey::sessionX11, "Это сеанс X11: кольцо открывается поверх любого окна."},
    {StringKey::sessionWayland,
     "Это сеанс Wayland: сочетания клавиш доходят, только пока клавиатура у окна X11, а окна приложений Wayland нельзя "
     "вывести на передний план."},
    {StringKey::sessionWaylandRemedy,
     "Выберите при входе сеанс X11 («Xorg») или назначьте в окружении рабочего стола сочетание клавиш, которое "
     "вызывает метод D-Bus «Trigger»; как это сделать, описано в README."},
    {StringKey::sessionHotkeysWork, "Каждое меню, у которого есть сочетание клавиш, открывается им."},
    {StringKey::sessionHotkeyRefusedRemedy,
     "Освободите %@ в другой программе или в настройках клавиатуры рабочего стола и запустите Rondora снова либо "
     "задайте меню другое сочетание в файле конфигурации."},
    {StringKey::sessionHotkeyUnusable, "Сочетание клавиш меню «%@» здесь использовать нельзя."},
    {StringKey::sessionHotkeyUnusableRemedy,
     "Завершите Rondora, задайте меню другое сочетание клавиш в файле конфигурации и запустите Rondora снова."},
    {StringKey::sessionTray, "Значок Rondora находится в области уведомлений."},
    {StringKey::sessionNoTrayRemedy,
     "Добавьте на панель область уведомлений; в GNOME для этого нужно расширение «AppIndicator». Если значка нет, "
     "запустите Rondora ещё раз — откроются эти настройки."},
    {StringKey::sessionKeystrokes, "Нажатия клавиш доходят до других приложений."},
    {StringKey::sessionNoKeystrokes,
     "X-сервер не принимает нажатия клавиш от программ, поэтому элементы, которые нажимают клавиши, ничего не делают."},
    {StringKey::sessionNoKeystrokesRemedy, "Включите расширение XTEST в X-сервере."},
    {StringKey::sessionTrackpadIgnored,
     "Эта версия ещё не реагирует на касания трекпада, поэтому они не открывают меню."},
    {StringKey::sessionTrackpadUnreadable, "У Rondora нет доступа к трекпаду, поэтому касания не открывают меню."},
    {StringKey::sessionTrackpadIgnoredRemedy,
     "Открывайте эти меню сочетанием клавиш; задать его можно в файле конфигурации."},
    {StringKey::sessionTrackpadUnreadableRemedy,
     "Открывайте эти меню сочетанием клавиш. Одна из следующих версий будет реагировать на касания, если ваш "
     "пользователь состоит в группе «input»."},
    {StringKey::snippetHint, "Текст скопирован в буфер обмена. Вставьте его вручную с помощью Command+V."},
    {StringKey::importRefused, "Не удалось прочитать этот файл. Выберите корректную резервную копию настроек."},
});

}  // namespace rondora
