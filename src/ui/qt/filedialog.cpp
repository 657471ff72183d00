#include "filedialog.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>

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

/// "words|*.a;*.b|words|..." as the toolkit wants it: "words (*.a *.b)". It can't read patterns with
/// semicolons, so the words themselves are put back behind it.
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

/// The name of the last use, in its folder; a plain name in the folder that was used last.
void presetname(QFileDialog& dialog, const std::string& filename) {
  static QString folder = QDir::currentPath();
  const QFileInfo last(QString::fromStdString(filename));
  if (last.isAbsolute() && last.dir().exists()) folder = last.absolutePath();
  dialog.setDirectory(folder);
  dialog.findChild<QLineEdit*>("fileNameEdit")
      ->setText(last.isAbsolute() ? last.fileName() : last.filePath());
}

void speak(QFileDialog& dialog, const Control& command) {
  const QString title = QString::fromStdString(command.caption);
  dialog.setWindowTitle(title);
  dialog.setLabelText(QFileDialog::Accept, title);
  dialog.setLabelText(QFileDialog::Reject, said(cancelword));
  dialog.setLabelText(QFileDialog::LookIn, said(lookword));
  dialog.setLabelText(QFileDialog::FileName, said(nameword));
  dialog.setLabelText(QFileDialog::FileType, said(typeword));
}

void ask(QFileDialog& dialog, CommonDialog& asked, const Control& command) {
  dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
  dialog.setFileMode(QFileDialog::AnyFile);
  speak(dialog, command);
  setfilter(dialog, asked.filter);
  presetname(dialog, asked.filename);
  // A list of proposals that is still open when the Return key ends the dialog keeps the focus from coming
  // back to the board: whoever works by keyboard would be stuck.
  dialog.findChild<QLineEdit*>("fileNameEdit")->setCompleter(nullptr);
  const bool chosen = dialog.exec() == QDialog::Accepted;
  leaveifended();
  if (chosen) asked.filename = dialog.selectedFiles().value(0).toStdString();
}

}  // namespace

void askopen(QWidget* parent, CommonDialog& asked) {
  QFileDialog dialog(parent);
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  ask(dialog, asked, frmmain::mnuopen);
}

void asksave(QWidget* parent, CommonDialog& asked) {
  QFileDialog dialog(parent);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  ask(dialog, asked, frmmain::mnusave);
}

}  // namespace gradino
