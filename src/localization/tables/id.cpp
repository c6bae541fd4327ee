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
    {StringKey::settingsCopy, "Salin"},
    {StringKey::settingsClose, "Tutup"},
    {StringKey::settingsSession, "Dalam sesi ini:"},
    {StringKey::sessionWorks, "Berfungsi"},
    {StringKey::sessionFails, "Tidak berfungsi"},
    {StringKey::sessionX11, "Ini sesi X11: cincin terbuka di atas jendela mana pun."},
    {StringKey::sessionWayland,
     "Ini sesi Wayland: tombol pintas hanya diterima selama papan ketik dipegang jendela X11, dan jendela aplikasi "
     "Wayland tidak dapat dibawa ke depan."},
    {StringKey::sessionWaylandRemedy,
     "Pilih sesi X11 (“Xorg”) saat masuk, atau atur pintasan papan ketik desktop Anda agar memanggil metode D-Bus "
     "“Trigger”; caranya ada di README."},
    {StringKey::sessionHotkeysWork, "Setiap menu yang memiliki tombol pintas terbuka dengannya."},
    {StringKey::sessionHotkeyRefusedRemedy,
     "Bebaskan %@ di program lain itu atau di pengaturan papan ketik desktop, lalu jalankan Rondora lagi; atau beri "
     "menu ini tombol pintas lain di berkas konfigurasi."},
    {StringKey::sessionHotkeyUnusable, "Rondora tidak dapat memakai tombol pintas menu “%@” di sini."},
    {StringKey::sessionHotkeyUnusableRemedy,
     "Keluar dari Rondora, beri menu ini tombol pintas lain di berkas konfigurasi, lalu jalankan Rondora lagi."},
    {StringKey::sessionTray, "Ikon Rondora ada di baki sistem."},
    {StringKey::sessionNoTrayRemedy,
     "Tambahkan baki sistem ke panel Anda; GNOME memerlukan ekstensi “AppIndicator” untuk itu. Tanpa ikon, pengaturan "
     "ini terbuka bila Rondora dijalankan sekali lagi."},
    {StringKey::sessionKeystrokes, "Penekanan tombol sampai ke aplikasi lain."},
    {StringKey::sessionNoKeystrokes,
     "Server X tidak menerima penekanan tombol dari program, jadi butir yang menekan tombol tidak melakukan apa-apa."},
    {StringKey::sessionNoKeystrokesRemedy, "Aktifkan ekstensi XTEST pada server X."},
    {StringKey::sessionTrackpadIgnored,
     "Versi ini belum menanggapi ketukan pada panel sentuh, jadi ketukan tidak membuka menu."},
    {StringKey::sessionTrackpadUnreadable,
     "Rondora tidak diizinkan membaca panel sentuh, jadi mengetuknya tidak membuka menu."},
    {StringKey::sessionTrackpadIgnoredRemedy,
     "Buka menu-menu ini dengan tombol pintas; Anda dapat menetapkannya di berkas konfigurasi."},
    {StringKey::sessionTrackpadUnreadableRemedy,
     "Buka menu-menu ini dengan tombol pintas. Versi mendatang akan menanggapi ketukan bila pengguna Anda termasuk "
     "dalam grup “input”."},
    {StringKey::snippetHint, "Teks disalin ke papan klip. Tempelkan sendiri dengan Command+V."},
    {StringKey::importRefused, "Berkas ini tidak dapat dibaca. Pilih cadangan pengaturan yang valid."},
});

}  // namespace rondora
