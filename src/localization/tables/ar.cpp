#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kArabicStrings = completeTable({
    {StringKey::settings, "الإعدادات"},
    {StringKey::quit, "إنهاء"},
    {StringKey::onboardingTitle, "مرحبًا بك في Rondora"},
    {StringKey::onboardingGreeting, "كل ما تحتاج إليه في حلقة حول المؤشر"},
    {StringKey::onboardingWhatItIs, "يفتح Rondora حلقة من الإجراءات حول المؤشر: تطبيقات وروابط ومقتطفات نصية."},
    {StringKey::onboardingHowToOpen, "اضغط على %@ لفتح الحلقة."},
    {StringKey::onboardingHowToChoose, "أشر إلى أحد القطاعات ثم أفلت المفاتيح، أو انقر عليه. يغلق مفتاح Esc الحلقة."},
    {StringKey::onboardingConfigurationFile, "قوائمك محفوظة في ملف واحد: %@"},
    {StringKey::onboardingGetStarted, "ابدأ الآن"},
    {StringKey::settingsTitle, "إعدادات Rondora"},
    {StringKey::settingsConfigurationFile, "ملف الإعدادات:"},
    {StringKey::settingsOpenFolder, "فتح المجلد"},
    {StringKey::settingsLanguage, "اللغة:"},
    {StringKey::settingsHotkeyRefused, "اختصار القائمة «%@» مستخدَم بالفعل في برنامج آخر."},
    {StringKey::settingsNoTray, "لا يحتوي سطح المكتب هذا على منطقة إشعارات، لذلك لا تظهر أيقونة Rondora."},
    {StringKey::settingsHotkeysNote,
     "تستخدم مفاتيح الاختصار العامة واجهة Carbon البرمجية في النظام. قد يتعذر تسجيل التركيبات التي تضم Fn أو مفتاح "
     "الكرة الأرضية فقط، فاختر اختصارًا آخر."},
    {StringKey::snippetHint, "نُسخ النص إلى الحافظة. الصقه يدويًا باستخدام Command+V."},
    {StringKey::importRefused, "تعذرت قراءة هذا الملف. يُرجى اختيار نسخة احتياطية صالحة من الإعدادات."},
});

}  // namespace rondora
