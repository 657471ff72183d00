// The file dialog.
#pragma once

#include "boxes.h"

class QWidget;

namespace gradino {

/// Asks for the name of a file to open or save. The name comes back as it was typed, made absolute; nothing
/// is appended to it, and an existing file brings no question. Cancel leaves the dialog's name alone.
void askopen(QWidget* parent, CommonDialog& dialog);
void asksave(QWidget* parent, CommonDialog& dialog);

}  // namespace gradino
