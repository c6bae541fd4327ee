#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kUrduStrings = completeTable({
    {StringKey::settings, "ترتیبات"},
    {StringKey::quit, "بند کریں"},
    {StringKey::onboardingTitle, "Rondora میں خوش آمدید"},
    {StringKey::onboardingGreeting, "ضرورت کی ہر چیز، پوائنٹر کے گرد ایک دائرے میں"},
    {StringKey::onboardingWhatItIs,
     "Rondora پوائنٹر کے گرد کاموں کا ایک دائرہ کھولتا ہے: ایپلیکیشنز، لنکس اور متن کے ٹکڑے۔"},
    {StringKey::onboardingHowToOpen, "دائرہ کھولنے کے لیے %@ دبائیں۔"},
    {StringKey::onboardingHowToChoose,
     "کسی حصے کی طرف اشارہ کریں اور کلیدیں چھوڑ دیں، یا اس پر کلک کریں۔ Escape دائرے کو بند کر دیتا ہے۔"},
    {StringKey::onboardingConfigurationFile, "آپ کے مینو ایک ہی فائل میں محفوظ ہیں: %@"},
    {StringKey::onboardingGetStarted, "شروع کریں"},
    {StringKey::settingsTitle, "Rondora کی ترتیبات"},
    {StringKey::settingsConfigurationFile, "ترتیبات کی فائل:"},
    {StringKey::settingsOpenFolder, "فولڈر کھولیں"},
    {StringKey::settingsHotkeyRefused, "مینو ”%@“ کی ہاٹ کی پہلے ہی کسی دوسرے پروگرام کے استعمال میں ہے۔"},
    {StringKey::settingsNoTray, "اس ڈیسک ٹاپ پر ٹرے آئیکن کی جگہ نہیں ہے، اس لیے Rondora کا آئیکن نظر نہیں آتا۔"},
    {StringKey::settingsHotkeysNote,
     "عالمی ہاٹ کیز سسٹم کا Carbon API استعمال کرتی ہیں۔ صرف Fn یا Globe والے مجموعے شاید رجسٹر نہ ہوں — کوئی اور شارٹ "
     "کٹ منتخب کریں۔"},
    {StringKey::snippetHint, "متن کلپ بورڈ پر کاپی ہو گیا ہے۔ اسے Command+V سے خود پیسٹ کریں۔"},
    {StringKey::importRefused, "یہ فائل پڑھی نہیں جا سکی۔ براہِ کرم ترتیبات کا درست بیک اپ منتخب کریں۔"},
});

}  // namespace rondora
