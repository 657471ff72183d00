// What the toolkit says of itself, in its file dialog and in the menus of its text boxes.
#pragma once

#include <QTranslator>

namespace gradino {

/// Gives the toolkit's own words in the language in force at the moment they are asked for. It is at work
/// while it lives.
class ToolkitWords : public QTranslator {
 public:
  ToolkitWords();

  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char* disambiguation,
                    int number) const override;
};

}  // namespace gradino
