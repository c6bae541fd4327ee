#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kUrduStrings = completeTable({
    {StringKey::settings, "ترتیبات"},
    {StringKey::quit, "باہر نکلیں"},
    {StringKey::onboardingTitle, "\u200FRondora میں خوش آمدید"},
    {StringKey::onboardingGreeting, "ضرورت کی ہر چیز، پوائنٹر کے گرد ایک دائرے میں"},
    {StringKey::onboardingWhatItIs,
     "\u200FRondora پوائنٹر کے گرد کاموں کا ایک دائرہ کھولتا ہے: ایپلیکیشنز، لنکس اور متن کے ٹکڑے۔"},
    {StringKey::onboardingHowToOpen, "دائرہ کھولنے کے لیے %@ دبائیں۔"},
    {StringKey::onboardingHowToChoose,
     "کسی حصے کی طرف اشارہ کریں اور کلیدیں چھوڑ دیں، یا اس پر کلک کریں۔ Esc دائرے کو بند کر دیتا ہے۔"},
    {StringKey::onboardingConfigurationFile, "آپ کے مینو ایک ہی فائل میں محفوظ ہیں: %@"},
    {StringKey::onboardingGetStarted, "شروع کریں"},
    {StringKey::settingsTitle, "\u200FRondora کی ترتیبات"},
    {StringKey::settingsConfigurationFile, "ترتیبات کی فائل:"},
    {StringKey::settingsOpenFolder, "فولڈر کھولیں"},
    {StringKey::settingsLanguage, "زبان:"},
    {StringKey::settingsHotkeyRefused, "مینو ”%@“ کا شارٹ کٹ پہلے ہی کوئی دوسرا پروگرام استعمال کر رہا ہے۔"},
    {StringKey::settingsNoTray, "اس ڈیسک ٹاپ پر ٹرے آئیکن کی جگہ نہیں ہے، اس لیے Rondora کا آئیکن نظر نہیں آتا۔"},
    {StringKey::settingsHotkeysNote,
     "عالمی شارٹ کٹ سسٹم کا Carbon API استعمال کرتے ہیں۔ صرف Fn یا Globe والے مجموعے شاید رجسٹر نہ ہوں — کوئی اور شارٹ "
     "کٹ منتخب کریں۔"},
    {StringKey::snippetHint, "متن کلپ بورڈ پر کاپی ہو گیا ہے۔ اسے Command+V سے خود پیسٹ کریں۔"},
    {StringKey::importRefused, "یہ فائل پڑھی نہیں جا سکی۔ براہِ کرم ترتیبات کا درست بیک اپ منتخب کریں۔"},
});

}  // namespace rondora
