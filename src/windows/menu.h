// The menu entries and toolbar keys as controls. What they say and do stands in the command tables (ui).
#pragma once

#include "boxes.h"

namespace gradino {

namespace frmmain {

// clang-format off
inline Control mnufile, mnuopen, mnusave, mnunew, mnuprint, mnulibreria;
inline Control mnuview, mnupencil, mnurefresh, mnuedit, mnuactivity;
inline Control mnuhints, mnuposition, mnunumber;
inline Control mnutecniche, mnurestricted, mnunakedpair, mnuhidden, mnutriplet, mnuxy, mnuxwing, mnusword,
               mnucolori, mnuchain;
inline Control mnutools, mnusolve;
inline Control mnugenerator, mnuadvanced;

namespace Toolbar1 {
inline Control pencil, refresh, modifica, activity, obbligate, nakedpair, hidden, nakedtriple, xywing, xwing,
               sword, colori, chain, numero, suggerisci;
}
namespace Toolbar2 {
inline Control open, anew, libreria, save, print, risolvi, conta, undo, genera, continuo;
}
// clang-format on

}  // namespace frmmain
}  // namespace gradino
