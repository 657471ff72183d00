#include "filedialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeView>

#include "events.h"
#include "menu.h"
#include "words.h"

namespace gradino {
namespace {

constexpr Words cancelword = {"Annulla", "Cancel"};
constexpr Words lookword = {"Cerca in:", "Look in:"};
constexpr Words nameword = {"Nome file:", "File name:"};
constexpr Words typeword = {"Tipo file:", "Files of type:"};

QString said(const Words& words) {
  const std::string_view text = inlanguage(words);
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The toolkit takes quotes as those of a list of names, and would read a"b"c as b. Here the whole text of
/// the field is the name.
class NameDialog : public QFileDialog {
 public:
  using QFileDialog::QFileDialog;

  QLineEdit* field() const { return findChild<QLineEdit*>("fileNameEdit"); }

  /// The name as typed, made absolute.
  QString name() const {
    return quoted() ? directory().absoluteFilePath(field()->text()) : selectedFiles().value(0);
  }

  /// Undoes what the toolkit does because it reads the name as a list: it disables the button, and puts more
  /// files into the field than the one that was clicked.
  void allowquotes() {
    const auto which = acceptMode() == AcceptOpen ? QDialogButtonBox::Open : QDialogButtonBox::Save;
    QPushButton* button = findChild<QDialogButtonBox*>()->button(which);
    connect(field(), &QLineEdit::textChanged, button, [this, button](const QString& chosen) {
      if (!chosen.contains('"')) return;
      const QSignalBlocker quiet(field());
      if (field()->text() != chosen) field()->setText(chosen);
      button->setEnabled(true);
    });
  }

  void accept() override {
    if (!quoted()) return QFileDialog::accept();
    if (!QFileInfo(name()).isDir()) return done(Accepted);
    setDirectory(name());
    field()->clear();
  }

 private:
  bool quoted() const { return field()->text().contains('"'); }
};

/// Converts "words|*.a;*.b|words|..." to the form of the toolkit, "words (*.a *.b)". It can't read patterns
/// with semicolons, so the words are restored afterwards.
void setfilter(QFileDialog& dialog, const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split('|');
  QStringList words, filters;
  for (qsizetype n = 0; n + 1 < parts.size(); n += 2) {
    words << parts[n];
    filters << parts[n].section('(', 0, 0) + '(' + QString(parts[n + 1]).replace(';', ' ') + ')';
  }
  dialog.setNameFilters(filters);
  auto* combo = dialog.findChild<QComboBox*>("fileTypeCombo");
  for (qsizetype n = 0; n < words.size(); ++n) combo->setItemText(static_cast<int>(n), words[n]);
}

/// The folder last used for opening or saving.
QString& lastfolder() {
  static QString folder = QDir::currentPath();
  return folder;
}

/// The last name, in its folder; a plain name in the folder last used.
void presetname(NameDialog& dialog, const std::string& filename) {
  const QFileInfo last(QString::fromStdString(filename));
  dialog.setDirectory(lastfolder());
  dialog.field()->setText(last.isAbsolute() ? last.fileName() : last.filePath());
}

void speak(QFileDialog& dialog, const Control& command) {
  const QString title = QString::fromStdString(command.caption);
  dialog.setWindowTitle(title);
  dialog.setLabelText(QFileDialog::Accept, title);
  dialog.setLabelText(QFileDialog::Reject, said(cancelword));
  dialog.setLabelText(QFileDialog::LookIn, said(lookword));
  dialog.setLabelText(QFileDialog::FileName, said(nameword));
  dialog.setLabelText(QFileDialog::FileType, said(typeword));
  QHeaderView* heads = dialog.findChild<QTreeView*>("treeView")->header();  // wide enough for English words
  for (int n = 0; n < heads->count(); ++n)
    heads->resizeSection(n, qMax(heads->sectionSize(n), heads->sectionSizeHint(n)));
}

void ask(NameDialog& dialog, CommonDialog& asked, const Control& command) {
  dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
  dialog.setFileMode(QFileDialog::AnyFile);
  speak(dialog, command);
  setfilter(dialog, asked.filter);
  presetname(dialog, asked.filename);
  // If a list of completions is still open when the Return key ends the dialog, the focus does not come back
  // to the board, and a user without a mouse would be stuck.
  dialog.field()->setCompleter(nullptr);
  dialog.allowquotes();
  const bool chosen = dialog.exec() == QDialog::Accepted;
  leaveifended();
  if (!chosen) return;
  asked.filename = dialog.name().toStdString();
  if (const QDir folder = QFileInfo(dialog.name()).dir(); folder.exists())
    lastfolder() = folder.absolutePath();
}

}  // namespace

void askopen(QWidget* parent, CommonDialog& asked) {
  NameDialog dialog(parent);
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  ask(dialog, asked, frmmain::mnuopen);
}

void asksave(QWidget* parent, CommonDialog& asked) {
  NameDialog dialog(parent);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  ask(dialog, asked, frmmain::mnusave);
}

}  // namespace gradino
