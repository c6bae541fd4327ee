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
    {StringKey::snippetHint, "O texto foi copiado para a área de transferência. Cole-o manualmente com Command+V."},
    {StringKey::importRefused, "Não foi possível ler este arquivo. Escolha um backup de configurações válido."},
});

}  // namespace rondora
