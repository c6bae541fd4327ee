#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kIndonesianStrings = completeTable({
    {StringKey::settings, "Pengaturan"},
    {StringKey::quit, "Keluar"},
    {StringKey::onboardingTitle, "Selamat datang di Rondora"},
    {StringKey::onboardingGreeting, "Semua yang Anda perlukan, dalam cincin di sekitar penunjuk"},
    {StringKey::onboardingWhatItIs,
     "Rondora membuka cincin tindakan di sekitar penunjuk: aplikasi, tautan, dan potongan teks."},
    {StringKey::onboardingHowToOpen, "Tekan %@ untuk membuka cincin."},
    {StringKey::onboardingHowToChoose,
     "Arahkan ke sebuah sektor lalu lepaskan tombol, atau klik sektor itu. Esc menutup cincin."},
    {StringKey::onboardingConfigurationFile, "Menu Anda tersimpan dalam satu berkas: %@"},
    {StringKey::onboardingGetStarted, "Mulai"},
    {StringKey::settingsTitle, "Pengaturan Rondora"},
    {StringKey::settingsConfigurationFile, "Berkas konfigurasi:"},
    {StringKey::settingsOpenFolder, "Buka Folder"},
    {StringKey::settingsLanguage, "Bahasa:"},
    {StringKey::settingsHotkeyRefused, "Tombol pintas menu “%@” sudah dipakai program lain."},
    {StringKey::settingsNoTray, "Desktop ini tidak memiliki baki sistem, jadi ikon Rondora tidak ditampilkan."},
    {StringKey::settingsHotkeysNote,
     "Tombol pintas global memakai API Carbon sistem. Kombinasi yang hanya memakai Fn atau Globe mungkin tidak "
     "terdaftar — pilih pintasan lain."},
    {StringKey::snippetHint, "Teks disalin ke papan klip. Tempelkan sendiri dengan Command+V."},
    {StringKey::importRefused, "Berkas ini tidak dapat dibaca. Pilih cadangan pengaturan yang valid."},
});

}  // namespace rondora
