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
    {StringKey::snippetHint, "Текст скопирован в буфер обмена. Вставьте его вручную с помощью Command+V."},
    {StringKey::importRefused, "Не удалось прочитать этот файл. Выберите корректную резервную копию настроек."},
});

}  // namespace rondora
