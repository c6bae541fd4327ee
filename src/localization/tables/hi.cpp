#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kHindiStrings = completeTable({
    {StringKey::settings, "सेटिंग्स"},
    {StringKey::quit, "बाहर निकलें"},
    {StringKey::onboardingTitle, "Rondora में आपका स्वागत है"},
    {StringKey::onboardingGreeting, "ज़रूरत की हर चीज़, पॉइंटर के चारों ओर एक घेरे में"},
    {StringKey::onboardingWhatItIs, "Rondora पॉइंटर के चारों ओर क्रियाओं का एक घेरा खोलता है: ऐप्लिकेशन, लिंक, टेक्स्ट के अंश।"},
    {StringKey::onboardingHowToOpen, "घेरा खोलने के लिए %@ दबाएँ।"},
    {StringKey::onboardingHowToChoose, "किसी खंड पर पॉइंटर ले जाकर कुंजियाँ छोड़ दें, या उस पर क्लिक करें। Esc से घेरा बंद होता है।"},
    {StringKey::onboardingConfigurationFile, "आपके मेनू एक ही फ़ाइल में रहते हैं: %@"},
    {StringKey::onboardingGetStarted, "शुरू करें"},
    {StringKey::settingsTitle, "Rondora सेटिंग्स"},
    {StringKey::settingsConfigurationFile, "कॉन्फ़िगरेशन फ़ाइल:"},
    {StringKey::settingsOpenFolder, "फ़ोल्डर खोलें"},
    {StringKey::settingsLanguage, "भाषा:"},
    {StringKey::settingsHotkeyRefused, "मेनू “%@” की हॉटकी को कोई दूसरा प्रोग्राम पहले से इस्तेमाल कर रहा है।"},
    {StringKey::settingsNoTray, "इस डेस्कटॉप पर ट्रे आइकन के लिए जगह नहीं है, इसलिए Rondora का आइकन नहीं दिखता।"},
    {StringKey::settingsHotkeysNote,
     "ग्लोबल हॉटकी सिस्टम के Carbon API का उपयोग करती हैं। केवल Fn या Globe वाले संयोजन शायद रजिस्टर न हों — कोई दूसरा शॉर्टकट "
     "चुनें।"},
    {StringKey::snippetHint, "टेक्स्ट क्लिपबोर्ड पर कॉपी हो गया है। इसे Command+V से ख़ुद पेस्ट करें।"},
    {StringKey::importRefused, "यह फ़ाइल पढ़ी नहीं जा सकी। कृपया सेटिंग्स का सही बैकअप चुनें।"},
});

}  // namespace rondora
