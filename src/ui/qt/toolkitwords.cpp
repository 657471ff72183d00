#include "toolkitwords.h"

#include <QCoreApplication>
#include <algorithm>
#include <iterator>
#include <string_view>

#include "words.h"

namespace gradino {
namespace {

// The English texts must be exactly those of the toolkit, which are the keys. Texts that are equal in both
// languages are left out.
// clang-format off
constexpr Words toolkitwords[] = {
    {"&Annulla",                         "&Undo"},
    {"&Ripeti",                          "&Redo"},
    {"&Taglia",                          "Cu&t"},
    {"&Copia",                           "&Copy"},
    {"&Incolla",                         "&Paste"},
    {"Elimina",                          "Delete"},
    {"Seleziona tutto",                  "Select All"},

    {"Indietro",                         "Back"},
    {"Torna indietro",                   "Go back"},
    {"Avanti",                           "Forward"},
    {"Vai avanti",                       "Go forward"},
    {"Cartella superiore",               "Parent Directory"},
    {"Vai alla cartella superiore",      "Go to the parent directory"},
    {"Crea nuova cartella",              "Create New Folder"},
    {"Crea una nuova cartella",          "Create a New Folder"},
    {"Elenco",                           "List View"},
    {"Mostra l'elenco",                  "Change to list view mode"},
    {"Dettagli",                         "Detail View"},
    {"Mostra i dettagli",                "Change to detail view mode"},
    {"Barra laterale",                   "Sidebar"},
    {"Elenco di luoghi e segnalibri",    "List of places and bookmarks"},
    {"File",                             "Files"},
    {"Luoghi recenti",                   "Recent Places"},

    {"Nome",                             "Name"},
    {"Dimensione",                       "Size"},
    {"Tipo",                             "Type"},
    {"Ultima modifica",                  "Date Modified"},
    {"Mostra ",                          "Show "},
    {"Unità",                            "Drive"},
    {"Cartella",                         "Folder"},
    {"File %1",                          "%1 File"},

    {"&Apri",                            "&Open"},
    {"&Salva",                           "&Save"},
    {"&Rinomina",                        "&Rename"},
    {"&Elimina",                         "&Delete"},
    {"Mostra i file &nascosti",          "Show &hidden files"},
    {"&Nuova cartella",                  "&New Folder"},
    {"Nuova cartella",                   "New Folder"},
    {"Rimuovi",                          "Remove"},
    {"&Sì",                              "&Yes"},

    {"Eliminare davvero '%1'?",                             "Are you sure you want to delete '%1'?"},
    {"'%1' è protetto da scrittura.\nEliminarlo lo stesso?", "'%1' is write protected.\nDo you want to delete it anyway?"},
    {"La cartella non può essere eliminata.",               "Could not delete directory."},
};
// clang-format on

}  // namespace

ToolkitWords::ToolkitWords() {
  QCoreApplication::installTranslator(this);
}

QString ToolkitWords::translate(const char*, const char* source, const char*, int) const {
  if (lingua != italian) return {};
  const auto* words =
      std::find_if(std::begin(toolkitwords), std::end(toolkitwords),
                   [asked = std::string_view(source)](const Words& row) { return row.en == asked; });
  if (words == std::end(toolkitwords)) return {};
  return QString::fromUtf8(words->it.data(), static_cast<qsizetype>(words->it.size()));
}

}  // namespace gradino
