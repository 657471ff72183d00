// Translations of the texts of the toolkit, in its file dialog and in the menus of text boxes.
#pragma once

#include <QTranslator>

namespace gradino {

/// Translates the texts of the toolkit to the language in force when they are requested, as long as it
/// exists.
class ToolkitWords : public QTranslator {
 public:
  ToolkitWords();

  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char* disambiguation,
                    int number) const override;
};

}  // namespace gradino
