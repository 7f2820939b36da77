#pragma once

#include "platform/system/types.h"

namespace vorn {

// Texts for people, in the language of the data. The first two are for the application's use.
inline constexpr StringView _SNotZone = u"Sfondo grafico senza zone sensibili";
inline constexpr StringView _SNotContainer = u"Pannello parent non assegnato";
inline constexpr StringView _SNotSingolaZona = u"La terapia %s sulla zona %s non è stata disegnata sul grafico "
                                               u"perchè manca la relativa zona sensibile";

} // namespace vorn
