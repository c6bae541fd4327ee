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
    {StringKey::settingsCopy, "نسخ"},
    {StringKey::settingsClose, "إغلاق"},
    {StringKey::settingsSession, "في هذه الجلسة:"},
    {StringKey::sessionWorks, "يعمل"},
    {StringKey::sessionFails, "لا يعمل"},
    {StringKey::sessionX11, "هذه جلسة X11: تُفتح الحلقة فوق أي نافذة."},
    {StringKey::sessionWayland,
     "هذه جلسة Wayland: لا تصل الاختصارات إلا عندما تكون لوحة المفاتيح في نافذة X11، ولا يمكن إحضار نوافذ تطبيقات "
     "Wayland إلى المقدمة."},
    {StringKey::sessionWaylandRemedy,
     "اختر جلسة X11 («Xorg») عند تسجيل الدخول، أو اجعل أحد اختصارات سطح المكتب يستدعي الطريقة «Trigger» عبر D-Bus؛ "
     "يشرح ملف README ذلك."},
    {StringKey::sessionHotkeysWork, "كل قائمة لها اختصار تُفتح به."},
    {StringKey::sessionHotkeyRefusedRemedy,
     "حرِّر %@ في البرنامج الآخر أو في إعدادات لوحة المفاتيح لسطح المكتب ثم شغّل Rondora من جديد، أو عيّن للقائمة اختصارًا "
     "آخر في ملف الإعدادات."},
    {StringKey::sessionHotkeyUnusable, "لا يستطيع Rondora استخدام اختصار القائمة «%@» هنا."},
    {StringKey::sessionHotkeyUnusableRemedy,
     "أنهِ Rondora، وعيّن للقائمة اختصارًا آخر في ملف الإعدادات، ثم شغّل Rondora من جديد."},
    {StringKey::sessionTray, "أيقونة Rondora موجودة في منطقة الإشعارات."},
    {StringKey::sessionNoTrayRemedy,
     "أضف منطقة إشعارات إلى شريط سطح المكتب؛ يحتاج GNOME لذلك إلى الإضافة «AppIndicator». ومن دون الأيقونة تُفتح هذه "
     "الإعدادات بتشغيل Rondora مرة أخرى."},
    {StringKey::sessionKeystrokes, "تصل ضغطات المفاتيح إلى التطبيقات الأخرى."},
    {StringKey::sessionNoKeystrokes,
     "لا يقبل خادم X ضغطات المفاتيح من البرامج، لذلك لا تفعل العناصر التي تضغط المفاتيح شيئًا."},
    {StringKey::sessionNoKeystrokesRemedy, "فعّل الامتداد XTEST في خادم X."},
    {StringKey::sessionTrackpadIgnored, "لا يستجيب هذا الإصدار بعد للنقر على لوحة اللمس، لذلك لا يفتح النقر أي قائمة."},
    {StringKey::sessionTrackpadUnreadable, "لا يُسمح لـ Rondora بقراءة لوحة اللمس، لذلك لا يفتح النقر عليها أي قائمة."},
    {StringKey::sessionTrackpadIgnoredRemedy, "افتح هذه القوائم باختصار بدلًا من ذلك؛ يمكنك تعيينه في ملف الإعدادات."},
    {StringKey::sessionTrackpadUnreadableRemedy,
     "افتح هذه القوائم باختصار بدلًا من ذلك. سيستجيب إصدار لاحق للنقر إذا كان حسابك ضمن المجموعة «input»."},
    {StringKey::documentUnreadable, "تعذّر على Rondora قراءة ملف الإعدادات فبدأ بالقوائم الافتراضية: %@"},
    {StringKey::documentKept, "حُفظ ذلك الملف باسم %@."},
    {StringKey::documentKeptItself, "تعذّرت كتابة نسخة منه، لذلك أُعطي الملف نفسه الاسم %@."},
    {StringKey::documentNotKept, "تعذّر حفظ ذلك الملف: %@"},
    {StringKey::documentRestoreHint, "صحّح الخطأ الموجود فيه ثم استعده."},
    {StringKey::documentNothingOpensIt, "لا يوجد هنا تطبيق يفتح هذا الملف."},
    {StringKey::findingOpenFile, "فتح الملف"},
    {StringKey::findingRestore, "استعادة"},
    {StringKey::findingDismiss, "تجاهل"},
    {StringKey::snippetHint, "نُسخ النص إلى الحافظة. الصقه يدويًا باستخدام Command+V."},
    {StringKey::importRefused, "تعذرت قراءة هذا الملف. يُرجى اختيار نسخة احتياطية صالحة من الإعدادات."},
});

}  // namespace rondora
