#include "localization/tables/tables.h"

namespace rondora {

constexpr StringTable kPortugueseStrings = completeTable({
    {StringKey::settings, "Configurações"},
    {StringKey::quit, "Sair"},
    {StringKey::onboardingTitle, "Boas-vindas ao Rondora"},
    {StringKey::onboardingGreeting, "Tudo de que você precisa, em um anel ao redor do ponteiro"},
    {StringKey::onboardingWhatItIs,
     "O Rondora abre um anel de ações ao redor do ponteiro: aplicativos, links e trechos de texto."},
    {StringKey::onboardingHowToOpen, "Pressione %@ para abrir o anel."},
    {StringKey::onboardingHowToChoose, "Aponte para um setor e solte as teclas, ou clique nele. Esc fecha o anel."},
    {StringKey::onboardingConfigurationFile, "Seus menus ficam em um único arquivo: %@"},
    {StringKey::onboardingGetStarted, "Começar"},
    {StringKey::settingsTitle, "Configurações do Rondora"},
    {StringKey::settingsConfigurationFile, "Arquivo de configuração:"},
    {StringKey::settingsOpenFolder, "Abrir pasta"},
    {StringKey::settingsLanguage, "Idioma:"},
    {StringKey::settingsHotkeyRefused, "O atalho do menu “%@” já está em uso por outro programa."},
    {StringKey::settingsNoTray,
     "Esta área de trabalho não tem bandeja do sistema, por isso o ícone do Rondora não aparece."},
    {StringKey::settingsHotkeysNote,
     "Os atalhos globais usam a API Carbon do sistema. Combinações só com Fn ou Globo podem não ser registradas — "
     "escolha outro atalho."},
    {StringKey::settingsCopy, "Copiar"},
    {StringKey::settingsClose, "Fechar"},
    {StringKey::settingsSession, "Nesta sessão:"},
    {StringKey::sessionWorks, "Funcionando"},
    {StringKey::sessionFails, "Sem funcionar"},
    {StringKey::sessionX11, "Esta é uma sessão X11: o anel abre sobre qualquer janela."},
    {StringKey::sessionWayland,
     "Esta é uma sessão Wayland: os atalhos só chegam enquanto uma janela X11 está com o teclado, e as janelas de "
     "aplicativos Wayland não podem ser trazidas para a frente."},
    {StringKey::sessionWaylandRemedy,
     "Escolha uma sessão X11 (“Xorg”) ao entrar, ou faça um atalho de teclado da sua área de trabalho chamar o método "
     "“Trigger” do D-Bus; o README explica como."},
    {StringKey::sessionHotkeysWork, "Todo menu que tem um atalho abre com ele."},
    {StringKey::sessionHotkeyRefusedRemedy,
     "Libere %@ no outro programa ou nas configurações de teclado da sua área de trabalho e inicie o Rondora de novo, "
     "ou dê outro atalho ao menu no arquivo de configuração."},
    {StringKey::sessionHotkeyUnusable, "O Rondora não pode usar aqui o atalho do menu “%@”."},
    {StringKey::sessionHotkeyUnusableRemedy,
     "Saia do Rondora, dê outro atalho ao menu no arquivo de configuração e inicie o Rondora de novo."},
    {StringKey::sessionTray, "O ícone do Rondora está na bandeja do sistema."},
    {StringKey::sessionNoTrayRemedy,
     "Adicione uma bandeja do sistema ao seu painel; o GNOME precisa da extensão “AppIndicator” para isso. Sem o "
     "ícone, iniciar o Rondora mais uma vez abre estas configurações."},
    {StringKey::sessionKeystrokes, "As teclas enviadas chegam aos outros aplicativos."},
    {StringKey::sessionNoKeystrokes,
     "O servidor X não aceita teclas enviadas por programas, por isso os itens que pressionam teclas não fazem nada."},
    {StringKey::sessionNoKeystrokesRemedy, "Ative a extensão XTEST do servidor X."},
    {StringKey::sessionTrackpadIgnored,
     "Esta versão ainda não reage a toques no touchpad, por isso eles não abrem nenhum menu."},
    {StringKey::sessionTrackpadUnreadable,
     "O Rondora não tem permissão para ler o touchpad, por isso tocar nele não abre nenhum menu."},
    {StringKey::sessionTrackpadIgnoredRemedy,
     "Abra esses menus com um atalho; você pode definir um no arquivo de configuração."},
    {StringKey::sessionTrackpadUnreadableRemedy,
     "Abra esses menus com um atalho. Uma versão futura vai reagir a toques se o seu usuário pertencer ao grupo "
     "“input”."},
    {StringKey::snippetHint, "O texto foi copiado para a área de transferência. Cole-o manualmente com Command+V."},
    {StringKey::importRefused, "Não foi possível ler este arquivo. Escolha um backup de configurações válido."},
});

}  // namespace rondora
