// The window of the library browser.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSize>
#include <QWidget>
#include <array>
#include <optional>
#include <vector>

#include "boxes.h"

namespace gradino {

inline constexpr QSize librarysize{760, 490};

/// frmlivello.
class LibraryWindow : public QWidget {
 public:
  /// Stays above the main window.
  explicit LibraryWindow(const QWidget& mainwindow);
  void mirror();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void showover();
  void addlevels();
  void addpreview();
  void addtexts();
  void addbuttons();
  void mirrorcounts();
  void mirrorpreview();

  struct Text {
    const Box* box;
    QLineEdit* edit;
  };
  struct Label {
    const Box* box;
    QLabel* label;
  };
  struct Button {
    const Control* control;
    QPushButton* button;
  };
  std::array<QRadioButton*, 23> options_{};
  std::array<QLabel*, 81> preview_{};
  std::array<std::optional<Box>, 81> previewed_{};
  std::vector<Text> texts_;
  std::vector<Label> labels_;
  std::vector<Button> buttons_;
  const QWidget& mainwindow_;
};

}  // namespace gradino
