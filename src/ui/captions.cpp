#include "captions.h"

#include <array>

#include "boxes.h"
#include "commands.h"
#include "words.h"

namespace gradino {

using namespace frmmain;

namespace {

struct CaptionRow {
  std::string* text;
  Words words;
};

// clang-format off
const CaptionRow captions[] = {
    {&Label3.text,        {"numero", "number"}},
    {&lblfile.text,       {"esposti", "filled"}},
    {&Label1.text,        {"vuoti", "empty"}},
    {&Label5.text,        {"schema", "grid id"}},
    {&cmdlan.tip,         {"english", "italiano"}},
    {&Pictgo.tip,         {"procedi", "go"}},
    {&Picthelp.tip,       {"spiega", "explain"}},
    {&Cmdtest.tip,        {"testa il tuo pc", "test your pc"}},
    {&cmdimpossibili.tip, {"UR - BUGS", "UR - BUGS"}},
};
// clang-format on

}  // namespace

void cmdlan_Click() {
  lingua = lingua == english ? italian : english;
  cmdlanflag = lingua == english ? Flag::it : Flag::uk;
  for (const CaptionRow& row : captions) *row.text = inlanguage(row.words);
  for (const MenuRow& row : menurows()) row.control->caption = inlanguage(row.caption);
  for (const auto& keys : {toolbar1rows(), toolbar2rows()})
    for (const KeyRow& row : keys)
      if (row.control != nullptr && !row.tip.it.empty()) row.control->tip = inlanguage(row.tip);
}

}  // namespace gradino
