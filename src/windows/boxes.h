// The windows as plain data. A box is a record, and routines read the board back from the boxes. ui/qt copies
// changed boxes to the screen when it gets its turn; tests and gradino-cli just read them.
#pragma once

#include <string>

#include "checked.h"
#include "colours.h"

namespace gradino {

/// A text box or label.
struct Box {
  std::string text;
  Colour back = white;
  Colour fore = textcolor;
  bool visible = true;
  bool locked = false;  ///< not to be typed in
  bool operator==(const Box&) const = default;
};

/// A picture, button, menu entry or toolbar key.
struct Control {
  std::string caption;
  std::string tip;
  bool visible = true;
  bool ticked = false;  ///< a menu's check mark, a key pressed in
  bool operator==(const Control&) const = default;
};

/// The states of pictures that change.
enum class Flag { it, uk };
enum class Lamp { verde, rosso };

/// The file dialog. It keeps the name that was chosen last.
struct CommonDialog {
  std::string filter;  ///< "words|patterns|words|patterns..."
  std::string filename;
};

// The main window. C++ doesn't allow a namespace `main`.
namespace frmmain {

inline constexpr int clientwidth = 491, clientheight = 530;

// A cell is a stack: Text2 at the bottom, nine pencil marks, Text1 on top, which covers both while visible.
inline Table<Box, 0, 80> Text1{"Text1"};           ///< the digit; data too, not only a view
inline Table<Box, 0, 80> Text2{"Text2"};           ///< background, and pencil marks under edit
inline Table<Box, 0, 809> candidate{"candidate"};  ///< cell * 10 + digit

// clang-format off
inline Box txthint, filetxt, txtlivello, testototale, txtlivello1;  ///< the text lines at the bottom
inline Box txtesposti, txtvuoti, Text5, tempotot, txtprogressivo;   ///< the side panel's boxes
inline Box lblfile, Label1, Label2, Label3, Label5, bkglabel;       ///< and its labels
inline Table<Box, 0, 21> liv{"liv"};                                ///< steps a level, bound to library records

inline Control Pictgo, Pictalt, Picthelp;                 ///< the traffic light; Pictgo visible: a wait is open
inline Control picstart, Picture2;                        ///< the clock's pictures
inline Lamp picstartlamp = Lamp::verde;
inline Control cmdlan, cmdimpossibili, Cmdtest, cmdnice;  ///< loose buttons
inline Flag cmdlanflag = Flag::it;                   ///< the language that cmdlan switches to
inline Control Check1;                                    ///< "genera schemi supersimmetrici"
inline Table<Control, 0, 9> Picture1{"Picture1"};         ///< the ring of digits, placed around cellacliccata
inline Table<Box, 0, 8> colore{"colore"};                 ///< the palette
// clang-format on

/// The box that is to get the input focus: ui/qt moves the focus there and clears the request.
struct Focus {
  enum class On { nothing, text1, text2 } on = On::nothing;
  int cell = 0;
};
inline Focus focusrequest;

/// The position of the window on the screen, kept up to date by ui/qt; head is the height of title, menu and
/// toolbars.
inline int left = 0, top = 0, width = clientwidth, head = 0;

}  // namespace frmmain

inline CommonDialog CD1;

/// The window of the activity log.
namespace Frmlog {
inline std::string caption;
inline bool visible = false;
inline Box Text3;
}  // namespace Frmlog

/// The window of the explanations.
namespace frmactivity {
inline std::string caption;
inline bool visible = false;
inline int left = 0, top = 0;
inline bool placed = true;  ///< false: left and top have changed, and ui/qt has to move the window
inline Box Text3;
}  // namespace frmactivity

/// The window of the continuous generator: what it has made, newest on top.
namespace frmgeneratore {
inline std::string caption;
inline bool visible = false;
inline Box Text1;
}  // namespace frmgeneratore

/// A window that the generator closes, but that is never opened.
namespace frmprogress {
inline bool visible = false;
inline Box Text1;
}  // namespace frmprogress

/// Every box of every window as in a program just started, before the main window is loaded.
void freshboxes();

}  // namespace gradino
