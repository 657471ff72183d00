#include "toolbars.h"

#include <QAction>
#include <QApplication>
#include <QFontMetrics>
#include <QMenu>
#include <QMenuBar>

#include "events.h"
#include "look.h"
#include "screenreader.h"

namespace gradino {

namespace {

constexpr int barheight = 28;
constexpr int keywidth = 23, keyheight = 26, separatorwidth = 8;

/// Several separators in a row leave room for the traffic light, which is on top of the lower bar.
constexpr int lightend = 423;

int widthof(const PictureButton& key) {
  if (key.text().isEmpty()) return keywidth;
  return qMax(keywidth, QFontMetrics(pixelfont(mssansserif, 10)).horizontalAdvance(key.text()) + 6);
}

}  // namespace

Toolbar::Toolbar(QWidget* client, const char* name, int y, std::span<const KeyRow> rows, Click click)
    : QWidget(client), rows_(rows) {
  setObjectName(name);
  setGeometry(0, y, frmmain::clientwidth, barheight);
  setPalette(QApplication::palette());  // not that of the client area
  setAutoFillBackground(true);
  for (const KeyRow& row : rows) addkey(row, click);
}

void Toolbar::addkey(const KeyRow& row, Click click) {
  if (row.control == nullptr) return keys_.push_back(nullptr);
  const std::string name = objectName().toStdString() + "_" + row.key;
  auto* key = new PictureButton(this, name.c_str(), PictureButton::Look::key, [click, &row] { click(row); });
  key->setart(QString("toolbar/") + row.key);
  nameby(*key, [&row] { return spoken(*row.control); });
  keys_.push_back(key);
}

void Toolbar::mirror() {
  for (std::size_t n = 0; n < keys_.size(); ++n) {
    if (keys_[n] == nullptr) continue;
    Control control = *rows_[n].control;
    control.caption = rows_[n].caption;
    keys_[n]->mirror(control);
  }
  placekeys();
}

// A hidden key leaves no gap.
void Toolbar::placekeys() {
  int x = 0;
  for (std::size_t n = 0; n < rows_.size(); ++n) {
    if (rows_[n].control == nullptr) {
      x = n > 0 && rows_[n - 1].control == nullptr ? lightend : x + separatorwidth;
      continue;
    }
    if (keys_[n] == nullptr || keys_[n]->isHidden()) continue;
    keys_[n]->setGeometry(x, (barheight - keyheight) / 2, widthof(*keys_[n]), keyheight);
    x += widthof(*keys_[n]);
  }
}

Menus::Menus(QMenuBar* bar) {
  QMenu* menu = nullptr;
  for (const MenuRow& row : menurows()) {
    if (row.title) menu = bar->addMenu("");
    QAction* action = row.title ? menu->menuAction() : menu->addAction("");
    action->setObjectName(row.name);
    if (!row.title) QObject::connect(action, &QAction::triggered, bar, [&row] { onevent(row.action); });
    entries_.push_back({row.control, action});
  }
}

namespace {

/// A title with its Alt letter marked: the first letter that no earlier title has taken.
QString withletter(const QString& title, QString& taken) {
  for (qsizetype n = 0; n < title.size(); ++n) {
    if (!title[n].isLetter() || taken.contains(title[n], Qt::CaseInsensitive)) continue;
    taken += title[n];
    return QString(title).insert(n, '&');
  }
  return title;
}

}  // namespace

// Only the program sets a check mark: on a checkable entry a click would change it too.
void Menus::mirror() {
  QString taken;
  for (const auto& [control, action] : entries_) {
    const QString caption = QString::fromStdString(control->caption);
    action->setText(action->menu() != nullptr ? withletter(caption, taken) : caption);
    action->setVisible(control->visible);
    action->setCheckable(control->ticked);
    action->setChecked(control->ticked);
  }
}

}  // namespace gradino
