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
    {StringKey::settingsCopy, "কপি করুন"},
    {StringKey::settingsClose, "বন্ধ করুন"},
    {StringKey::settingsSession, "এই সেশনে:"},
    {StringKey::sessionWorks, "কাজ করছে"},
    {StringKey::sessionFails, "কাজ করছে না"},
    {StringKey::sessionX11, "এটি একটি X11 সেশন: বলয়টি যেকোনো উইন্ডোর উপরে খোলে।"},
    {StringKey::sessionWayland,
     "এটি একটি Wayland সেশন: কোনো X11 উইন্ডোতে কীবোর্ড থাকলেই শুধু হটকী কাজ করে, আর Wayland অ্যাপ্লিকেশনের উইন্ডো সামনে আনা "
     "যায় না।"},
    {StringKey::sessionWaylandRemedy,
     "লগ ইন করার সময় একটি X11 সেশন (“Xorg”) বেছে নিন, অথবা ডেস্কটপের কোনো কীবোর্ড শর্টকাট দিয়ে D-Bus পদ্ধতি “Trigger” "
     "চালান; নিয়মটি README-তে আছে।"},
    {StringKey::sessionHotkeysWork, "যেসব মেনুর হটকী আছে, সেগুলো হটকী দিয়ে খোলে।"},
    {StringKey::sessionHotkeyRefusedRemedy,
     "অন্য প্রোগ্রামে বা ডেস্কটপের কীবোর্ড সেটিংসে %@ খালি করে Rondora আবার চালু করুন, অথবা কনফিগারেশন ফাইলে মেনুটিকে অন্য একটি "
     "হটকী দিন।"},
    {StringKey::sessionHotkeyUnusable, "Rondora এখানে “%@” মেনুর হটকী ব্যবহার করতে পারে না।"},
    {StringKey::sessionHotkeyUnusableRemedy,
     "Rondora থেকে প্রস্থান করুন, কনফিগারেশন ফাইলে মেনুটিকে অন্য একটি হটকী দিন এবং Rondora আবার চালু করুন।"},
    {StringKey::sessionTray, "Rondora-র আইকন সিস্টেম ট্রে-তে আছে।"},
    {StringKey::sessionNoTrayRemedy,
     "আপনার প্যানেলে একটি সিস্টেম ট্রে যোগ করুন; GNOME-এ এর জন্য “AppIndicator” এক্সটেনশন দরকার। আইকন না থাকলে Rondora "
     "আরেকবার চালু করলেই এই সেটিংস খোলে।"},
    {StringKey::sessionKeystrokes, "কী চাপার নির্দেশ অন্য অ্যাপ্লিকেশনে পৌঁছায়।"},
    {StringKey::sessionNoKeystrokes,
     "X সার্ভার প্রোগ্রাম থেকে কী চাপার নির্দেশ নেয় না, তাই যেসব আইটেম কী চাপে সেগুলো কিছুই করে না।"},
    {StringKey::sessionNoKeystrokesRemedy, "X সার্ভারের XTEST এক্সটেনশন চালু করুন।"},
    {StringKey::sessionTrackpadIgnored, "এই সংস্করণ এখনো ট্র্যাকপ্যাডে ট্যাপ ধরতে পারে না, তাই ট্যাপ করলে কোনো মেনু খোলে না।"},
    {StringKey::sessionTrackpadUnreadable, "Rondora-র ট্র্যাকপ্যাড পড়ার অনুমতি নেই, তাই এতে ট্যাপ করলে কোনো মেনু খোলে না।"},
    {StringKey::sessionTrackpadIgnoredRemedy, "এই মেনুগুলো হটকী দিয়ে খুলুন; কনফিগারেশন ফাইলে সেগুলোকে হটকী দিতে পারেন।"},
    {StringKey::sessionTrackpadUnreadableRemedy,
     "এই মেনুগুলো হটকী দিয়ে খুলুন। আপনার ব্যবহারকারী “input” গ্রুপে থাকলে পরের কোনো সংস্করণ ট্যাপে সাড়া দেবে।"},
    {StringKey::snippetHint, "লেখাটি ক্লিপবোর্ডে কপি হয়েছে। Command+V দিয়ে নিজে পেস্ট করুন।"},
    {StringKey::importRefused, "এই ফাইলটি পড়া গেল না। অনুগ্রহ করে সেটিংসের একটি সঠিক ব্যাকআপ বেছে নিন।"},
});

}  // namespace rondora
