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
    {StringKey::settingsCopy, "کاپی کریں"},
    {StringKey::settingsClose, "بند کریں"},
    {StringKey::settingsSession, "اس سیشن میں:"},
    {StringKey::sessionWorks, "کام کر رہا ہے"},
    {StringKey::sessionFails, "کام نہیں کر رہا"},
    {StringKey::sessionX11, "یہ X11 سیشن ہے: دائرہ ہر ونڈو کے اوپر کھلتا ہے۔"},
    {StringKey::sessionWayland,
     "یہ Wayland سیشن ہے: شارٹ کٹ صرف اُس وقت پہنچتے ہیں جب کی بورڈ کسی X11 ونڈو کے پاس ہو، اور Wayland ایپلیکیشنز کی "
     "ونڈوز سامنے نہیں لائی جا سکتیں۔"},
    {StringKey::sessionWaylandRemedy,
     "لاگ اِن کرتے وقت X11 سیشن (”Xorg“) منتخب کریں، یا اپنے ڈیسک ٹاپ کے کسی کی بورڈ شارٹ کٹ سے D-Bus کا طریقہ "
     "”Trigger“ چلائیں؛ تفصیل README میں ہے۔"},
    {StringKey::sessionHotkeysWork, "جس مینو کا شارٹ کٹ ہے وہ اُسی سے کھلتا ہے۔"},
    {StringKey::sessionHotkeyRefusedRemedy,
     "دوسرے پروگرام میں یا ڈیسک ٹاپ کی کی بورڈ ترتیبات میں %@ خالی کریں اور Rondora دوبارہ شروع کریں، یا ترتیبات کی "
     "فائل میں مینو کو کوئی اور شارٹ کٹ دیں۔"},
    {StringKey::sessionHotkeyUnusable, "یہاں Rondora مینو ”%@“ کا شارٹ کٹ استعمال نہیں کر سکتا۔"},
    {StringKey::sessionHotkeyUnusableRemedy,
     "پہلے Rondora سے باہر نکلیں، ترتیبات کی فائل میں مینو کو کوئی اور شارٹ کٹ دیں، پھر Rondora دوبارہ شروع کریں۔"},
    {StringKey::sessionTray, "سسٹم ٹرے میں Rondora کا آئیکن موجود ہے۔"},
    {StringKey::sessionNoTrayRemedy,
     "اپنے پینل میں سسٹم ٹرے شامل کریں؛ GNOME کو اس کے لیے ایکسٹینشن ”AppIndicator“ درکار ہے۔ آئیکن نہ ہو تو Rondora "
     "ایک بار پھر شروع کرنے سے یہ ترتیبات کھل جاتی ہیں۔"},
    {StringKey::sessionKeystrokes, "کلیدوں کے دباؤ دوسری ایپلیکیشنز تک پہنچتے ہیں۔"},
    {StringKey::sessionNoKeystrokes,
     "ایکس سرور پروگراموں سے کلیدوں کے دباؤ قبول نہیں کرتا، اس لیے کلیدیں دبانے والے آئٹم کچھ نہیں کرتے۔"},
    {StringKey::sessionNoKeystrokesRemedy, "ایکس سرور کی XTEST ایکسٹینشن فعال کریں۔"},
    {StringKey::sessionTrackpadIgnored,
     "یہ ورژن ابھی ٹریک پیڈ پر ٹیپ نہیں پہچانتا، اس لیے ٹیپ سے کوئی مینو نہیں کھلتا۔"},
    {StringKey::sessionTrackpadUnreadable,
     "ٹریک پیڈ پڑھنے کی اجازت Rondora کو نہیں ہے، اس لیے اس پر ٹیپ سے کوئی مینو نہیں کھلتا۔"},
    {StringKey::sessionTrackpadIgnoredRemedy,
     "یہ مینو شارٹ کٹ سے کھولیں؛ ترتیبات کی فائل میں آپ انہیں شارٹ کٹ دے سکتے ہیں۔"},
    {StringKey::sessionTrackpadUnreadableRemedy,
     "یہ مینو شارٹ کٹ سے کھولیں۔ اگر آپ کا صارف گروپ ”input“ میں ہو تو آئندہ کوئی ورژن ٹیپ پہچانے گا۔"},
    {StringKey::snippetHint, "متن کلپ بورڈ پر کاپی ہو گیا ہے۔ اسے Command+V سے خود پیسٹ کریں۔"},
    {StringKey::importRefused, "یہ فائل پڑھی نہیں جا سکی۔ براہِ کرم ترتیبات کا درست بیک اپ منتخب کریں۔"},
});

}  // namespace rondora
