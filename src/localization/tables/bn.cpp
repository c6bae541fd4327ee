#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kBengaliStrings = completeTable({
    {StringKey::settings, "সেটিংস"},
    {StringKey::quit, "প্রস্থান করুন"},
    {StringKey::onboardingTitle, "Rondora-তে স্বাগতম"},
    {StringKey::onboardingGreeting, "দরকারি সবকিছু, পয়েন্টারের চারপাশে একটি বলয়ে"},
    {StringKey::onboardingWhatItIs, "Rondora পয়েন্টারের চারপাশে কাজের একটি বলয় খোলে: অ্যাপ্লিকেশন, লিঙ্ক, লেখার টুকরো।"},
    {StringKey::onboardingHowToOpen, "বলয়টি খুলতে %@ চাপুন।"},
    {StringKey::onboardingHowToChoose,
     "কোনো অংশের দিকে পয়েন্টার নিয়ে কী ছেড়ে দিন, অথবা সেটিতে ক্লিক করুন। Esc চাপলে বলয় বন্ধ হয়।"},
    {StringKey::onboardingConfigurationFile, "আপনার মেনুগুলো একটি ফাইলে থাকে: %@"},
    {StringKey::onboardingGetStarted, "শুরু করুন"},
    {StringKey::settingsTitle, "Rondora সেটিংস"},
    {StringKey::settingsConfigurationFile, "কনফিগারেশন ফাইল:"},
    {StringKey::settingsOpenFolder, "ফোল্ডার খুলুন"},
    {StringKey::settingsLanguage, "ভাষা:"},
    {StringKey::settingsHotkeyRefused, "“%@” মেনুর হটকী অন্য একটি প্রোগ্রাম আগে থেকেই ব্যবহার করছে।"},
    {StringKey::settingsNoTray, "এই ডেস্কটপে ট্রে আইকনের জায়গা নেই, তাই Rondora-র আইকন দেখানো হচ্ছে না।"},
    {StringKey::settingsHotkeysNote,
     "গ্লোবাল হটকী সিস্টেমের Carbon API ব্যবহার করে। শুধু Fn বা Globe দিয়ে তৈরি সমন্বয় নিবন্ধিত না-ও হতে পারে — অন্য একটি "
     "শর্টকাট বেছে নিন।"},
    {StringKey::snippetHint, "লেখাটি ক্লিপবোর্ডে কপি হয়েছে। Command+V দিয়ে নিজে পেস্ট করুন।"},
    {StringKey::importRefused, "এই ফাইলটি পড়া গেল না। অনুগ্রহ করে সেটিংসের একটি সঠিক ব্যাকআপ বেছে নিন।"},
});

}  // namespace rondora
