#include "screenreader.h"

#include <QAccessibleWidget>
#include <QChildEvent>
#include <QCoreApplication>
#include <QPointer>
#include <utility>
#include <vector>
#ifdef QT_DBUS_LIB
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#endif

#include "boxes.h"
#include "cellboxes.h"
#include "events.h"
#include "light.h"

namespace gradino {
namespace {

struct Named {
  QPointer<QWidget> widget;
  std::function<Telling()> tell;
  Telling given;
};
std::vector<Named> named;

int hushes = 0;

bool listening() {
  return readerlistens() && hushes == 0;
}

void mirrorname(Named& row) {
  Telling now = row.tell();
  if (now == row.given) return;
  if (now.name != row.given.name) row.widget->setAccessibleName(QString::fromStdString(now.name));
  if (now.description != row.given.description)
    row.widget->setAccessibleDescription(QString::fromStdString(now.description));
  row.given = std::move(now);
}

/// A reader that is started while the program runs finds no names yet.
class Newcomers : public QAccessible::ActivationObserver {
 public:
  void accessibilityActiveChanged(bool active) override {
    if (active) onevent([] {});
  }
};

/// The pencil marks are so many that their names are made only on request, and their changes aren't reported:
/// the name of the cell contains them.
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

// The toolkit asks by class name, the most derived class first.
QAccessibleInterface* newreader(const QString&, QObject* object) {
  if (auto* mark = dynamic_cast<CandidateBox*>(object)) return new MarkReader(*mark);
  if (auto* voice = dynamic_cast<Announcer*>(object))
    return new QAccessibleWidget(voice, QAccessible::Notification);
  return nullptr;
}

#ifdef QT_DBUS_LIB
constexpr const char* statusservice = "org.a11y.Bus";

/// The bridge of the toolkit to screen readers asks the desktop only once whether there is a reader: one that
/// is started later would hear nothing. The bridge has a slot that asks again, which only has to be called
/// whenever the answer of the desktop changes. The bridge can't be obtained from any owner, but its
/// construction can be observed. Without such a bridge nothing happens.
class BridgeWatch : public QObject {
 public:
  BridgeWatch() {
    QCoreApplication::instance()->installEventFilter(this);
    QAccessible::isActive();  // constructs the bridge
    QCoreApplication::instance()->removeEventFilter(this);
    // If the display itself says where readers are found, the bridge learns from it that there is one, but
    // doesn't become active: what the desktop says afterwards would then be no change.
    if (bridge_ && QDBusConnection::sessionBus().interface()->isServiceRegistered(statusservice))
      QMetaObject::invokeMethod(bridge_, "serviceRegistered");
  }

  // This comes before the bridge asks, so no change can be missed.
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::ChildAdded && asks(*object)) {
      bridge_ = object;
      QDBusConnection::sessionBus().connect(statusservice, "/org/a11y/bus", "org.freedesktop.DBus.Properties",
                                            "PropertiesChanged", object, SLOT(serviceRegistered()));
    }
    return false;
  }

 private:
  static bool asks(const QObject& object) {
    const QMetaObject& its = *object.metaObject();
    return its.indexOfSlot("serviceRegistered()") >= 0 && its.indexOfSignal("enabledChanged(bool)") >= 0;
  }

  QPointer<QObject> bridge_;
};

void hearlatereaders() {
  const BridgeWatch watch;
}
#else
void hearlatereaders() {}
#endif

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

// Readers speak a notification when it appears, and ask for its name then.
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
    hearlatereaders();
    return true;
  }();
  static_cast<void>(met);
}

}  // namespace gradino
