// The file dialog.
#pragma once

#include "boxes.h"

class QWidget;

namespace gradino {

/// Asks for the name of a file to open or save. The name is returned as typed, made absolute: nothing is
/// appended, and there is no question about an existing file. Cancel leaves the name unchanged.
void askopen(QWidget* parent, CommonDialog& dialog);
void asksave(QWidget* parent, CommonDialog& dialog);

}  // namespace gradino
