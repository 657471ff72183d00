// Everything around the board: labels, counts, text lines, palette, traffic light, clock, ring.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <array>
#include <optional>
#include <vector>

#include "boxes.h"
#include "picturebutton.h"

class QCheckBox;

namespace gradino {

class Panel {
 public:
  explicit Panel(QWidget* client);
  void mirror();

  /// Raises the pictures above the toolbars, which some overlap, and the ring above everything.
  void raisepictures();

 private:
  struct Label {
    const Box* box;
    QLabel* label;
    std::optional<Box> shown;
  };
  struct TextBox {
    const Box* box;
    QLineEdit* edit;
    std::optional<Box> shown;
  };
  struct Picture {
    const Control* control;
    PictureButton* button;
  };

  void addlabels(QWidget* client);
  void addtextboxes(QWidget* client);
  void addpictures(QWidget* client);
  void addpalette(QWidget* client);
  void addring(QWidget* client);

  void mirrortexts();
  void mirrorpictures();
  void mirrorring();

  std::vector<Label> labels_;
  std::vector<TextBox> textboxes_;
  std::vector<Picture> pictures_;
  std::array<PictureButton*, 9> palette_{};
  std::array<PictureButton*, 10> ring_{};
  PictureButton *lamp_ = nullptr, *flag_ = nullptr;
  QCheckBox* check_ = nullptr;
};

}  // namespace gradino
