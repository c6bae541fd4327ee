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
    {StringKey::settingsCopy, "कॉपी करें"},
    {StringKey::settingsClose, "बंद करें"},
    {StringKey::settingsSession, "इस सत्र में:"},
    {StringKey::sessionWorks, "काम करता है"},
    {StringKey::sessionFails, "काम नहीं करता"},
    {StringKey::sessionX11, "यह X11 सत्र है: घेरा हर विंडो के ऊपर खुलता है।"},
    {StringKey::sessionWayland,
     "यह Wayland सत्र है: हॉटकी तभी पहुँचती हैं जब कीबोर्ड किसी X11 विंडो के पास हो, और Wayland ऐप्लिकेशन की विंडो सामने नहीं लाई जा "
     "सकतीं।"},
    {StringKey::sessionWaylandRemedy,
     "लॉग इन करते समय X11 सत्र (“Xorg”) चुनें, या अपने डेस्कटॉप के किसी कीबोर्ड शॉर्टकट से D-Bus विधि “Trigger” को बुलाएँ; तरीका "
     "README में लिखा है।"},
    {StringKey::sessionHotkeysWork, "जिस मेनू की हॉटकी है, वह उससे खुलता है।"},
    {StringKey::sessionHotkeyRefusedRemedy,
     "दूसरे प्रोग्राम में या डेस्कटॉप की कीबोर्ड सेटिंग्स में %@ को मुक्त करें और Rondora फिर से शुरू करें, या कॉन्फ़िगरेशन फ़ाइल में मेनू को कोई "
     "दूसरी हॉटकी दें।"},
    {StringKey::sessionHotkeyUnusable, "Rondora यहाँ मेनू “%@” की हॉटकी का उपयोग नहीं कर सकता।"},
    {StringKey::sessionHotkeyUnusableRemedy,
     "Rondora से बाहर निकलें, कॉन्फ़िगरेशन फ़ाइल में मेनू को कोई दूसरी हॉटकी दें और Rondora फिर से शुरू करें।"},
    {StringKey::sessionTray, "Rondora का आइकन सिस्टम ट्रे में है।"},
    {StringKey::sessionNoTrayRemedy,
     "अपने पैनल में सिस्टम ट्रे जोड़ें; GNOME में इसके लिए “AppIndicator” एक्सटेंशन चाहिए। आइकन न हो तो Rondora को एक बार और शुरू करने पर "
     "ये सेटिंग्स खुलती हैं।"},
    {StringKey::sessionKeystrokes, "कुंजी दबाने का असर दूसरे ऐप्लिकेशन तक पहुँचता है।"},
    {StringKey::sessionNoKeystrokes, "X सर्वर प्रोग्रामों से कुंजियाँ स्वीकार नहीं करता, इसलिए कुंजियाँ दबाने वाले आइटम कुछ नहीं करते।"},
    {StringKey::sessionNoKeystrokesRemedy, "X सर्वर का XTEST एक्सटेंशन चालू करें।"},
    {StringKey::sessionTrackpadIgnored, "यह संस्करण अभी ट्रैकपैड पर टैप नहीं पहचानता, इसलिए टैप से कोई मेनू नहीं खुलता।"},
    {StringKey::sessionTrackpadUnreadable,
     "Rondora को ट्रैकपैड पढ़ने की अनुमति नहीं है, इसलिए उस पर टैप करने से कोई मेनू नहीं खुलता।"},
    {StringKey::sessionTrackpadIgnoredRemedy, "इन मेनू को हॉटकी से खोलें; कॉन्फ़िगरेशन फ़ाइल में आप उन्हें हॉटकी दे सकते हैं।"},
    {StringKey::sessionTrackpadUnreadableRemedy,
     "इन मेनू को हॉटकी से खोलें। आगे का कोई संस्करण टैप पहचानेगा, बशर्ते आपका उपयोगकर्ता “input” समूह में हो।"},
    {StringKey::documentUnreadable, "Rondora अपनी कॉन्फ़िगरेशन फ़ाइल नहीं पढ़ सका और मानक मेनू के साथ शुरू हुआ: %@"},
    {StringKey::documentKept, "वह फ़ाइल इस नाम से रखी गई है: %@"},
    {StringKey::documentKeptItself, "उसकी प्रति नहीं लिखी जा सकी, इसलिए फ़ाइल को ही यह नाम दिया गया: %@"},
    {StringKey::documentNotKept, "वह फ़ाइल नहीं रखी जा सकी: %@"},
    {StringKey::documentRestoreHint, "उसमें गलती ठीक करें, फिर उसे पुनर्स्थापित करें।"},
    {StringKey::documentNothingOpensIt, "यहाँ कोई ऐप्लिकेशन यह फ़ाइल नहीं खोलता।"},
    {StringKey::findingOpenFile, "फ़ाइल खोलें"},
    {StringKey::findingRestore, "पुनर्स्थापित करें"},
    {StringKey::findingDismiss, "हटाएँ"},
    {StringKey::snippetHint, "टेक्स्ट क्लिपबोर्ड पर कॉपी हो गया है। इसे Command+V से ख़ुद पेस्ट करें।"},
    {StringKey::importRefused, "यह फ़ाइल पढ़ी नहीं जा सकी। कृपया सेटिंग्स का सही बैकअप चुनें।"},
});

}  // namespace rondora
