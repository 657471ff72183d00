#include "screenreader.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <utility>
#include <vector>

#include "boxes.h"
#include "cellboxes.h"
#include "events.h"
#include "light.h"

namespace gradino {
namespace {

struct Named {
  QPointer<QWidget> widget;
  std::function<Telling()> tell;
  Telling told;
};
std::vector<Named> named;

int hushes = 0;

bool listening() {
  return readerlistens() && hushes == 0;
}

void mirrorname(Named& row) {
  Telling now = row.tell();
  if (now == row.told) return;
  if (now.name != row.told.name) row.widget->setAccessibleName(QString::fromStdString(now.name));
  if (now.description != row.told.description)
    row.widget->setAccessibleDescription(QString::fromStdString(now.description));
  row.told = std::move(now);
}

/// A reader that comes while the program runs finds no names yet.
class Newcomers : public QAccessible::ActivationObserver {
 public:
  void accessibilityActiveChanged(bool active) override {
    if (active) onevent([] {});
  }
};

/// The pencil marks: there are so many that their names are worked out only when they are asked for, and no
/// change of them is reported: the cell's own name tells it.
class MarkReader : public QAccessibleWidget {
 public:
  explicit MarkReader(CandidateBox& mark) : QAccessibleWidget(&mark, QAccessible::StaticText) {}

  QString text(QAccessible::Text kind) const override {
    const auto* mark = static_cast<const CandidateBox*>(widget());
    if (kind == QAccessible::Name) return QString::fromStdString(spokenmark(mark->index()).name);
    if (kind == QAccessible::Description)
      return QString::fromStdString(spokenmark(mark->index()).description);
    return QAccessibleWidget::text(kind);
  }
  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& name) override {
    if (name == pressAction()) static_cast<CandidateBox*>(widget())->click();
  }
};

// The toolkit asks by the names of its own classes, from the most special one on.
QAccessibleInterface* newreader(const QString&, QObject* object) {
  if (auto* mark = dynamic_cast<CandidateBox*>(object)) return new MarkReader(*mark);
  if (auto* voice = dynamic_cast<Announcer*>(object))
    return new QAccessibleWidget(voice, QAccessible::Notification);
  return nullptr;
}

}  // namespace

void nameby(QWidget& widget, std::function<Telling()> tell) {
  named.push_back({&widget, std::move(tell), {}});
}

void mirrornames() {
  if (!listening()) return;
  std::erase_if(named, [](const Named& row) { return row.widget.isNull(); });
  for (Named& row : named) mirrorname(row);
}

Hush::Hush() {
  ++hushes;
}
Hush::~Hush() {
  --hushes;
}

Announcer::Announcer(QWidget* parent) : QWidget(parent) {
  setObjectName("announcer");
  setGeometry(0, 0, 0, 0);
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Announcer::mirror() {
  if (!listening()) return;
  std::string news = newsentence();
  if (const std::string more = newexplanation(); !more.empty()) news += news.empty() ? more : '\n' + more;
  if (!news.empty()) say(news);
}

std::string Announcer::newsentence() {
  const bool waits = waiting(), asksnow = waits && !waited_;
  waited_ = waits;
  if (frmmain::txthint.text == sentence_ && !asksnow) return "";
  return sentence_ = frmmain::txthint.text;
}

std::string Announcer::newexplanation() {
  const std::string before = std::exchange(explanation_, frmactivity::visible ? frmactivity::Text3.text : "");
  if (explanation_ == before) return "";
  return explanation_.substr(explanation_.starts_with(before) ? before.size() : 0);
}

// Readers speak a notification when it comes up, and ask for its name then.
void Announcer::say(const std::string& text) {
  setAccessibleName(QString::fromStdString(text));
  for (const auto happening : {QAccessible::ObjectHide, QAccessible::ObjectShow}) {
    QAccessibleEvent event(this, happening);
    QAccessible::updateAccessibility(&event);
  }
}

void meetscreenreaders() {
  static Newcomers newcomers;
  static const bool met = [] {
    QAccessible::installFactory(newreader);
    QAccessible::installActivationObserver(&newcomers);
    return true;
  }();
  static_cast<void>(met);
}

}  // namespace gradino
