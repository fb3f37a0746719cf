#include "studio/window/presets.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <optional>
#include <vector>

#include "studio/base/studio_error.h"
#include "studio/base/text.h"
#include "studio/window/studio_window.h"

namespace {

constexpr int kDialogColumns = 48;  // how wide the dialogs are at least, in characters
constexpr int kMostCharacters = 80;
constexpr int kSavedName = Qt::UserRole;
constexpr int kValidName = Qt::UserRole + 1;  // before the present edit
// The greatest width of a text in the menu, in characters.
constexpr int kNameColumns = 48;
constexpr int kReasonColumns = 120;

/// New names of presets by their former names; an empty name deletes the preset.
using PresetChanges = std::map<QString, QString, PresetOrder>;

QLabel* MakeLabel(const QString& text = {}) {
  auto* const label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

/// Adds the buttons that accept and reject the dialog. Returns the one that accepts.
QPushButton* AddButtons(QDialog& dialog, QVBoxLayout& layout, const QString& accept) {
  auto* const buttons = new QDialogButtonBox;
  auto* const accepting = buttons->addButton(accept, QDialogButtonBox::AcceptRole);
  buttons->addButton(Text("$$$/Studio/Box/Cancel=Cancel"), QDialogButtonBox::RejectRole);
  layout.addWidget(buttons);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  return accepting;
}

/// Lists presets with names that can be edited.
class PresetsDialog final : public QDialog {
 public:
  PresetsDialog(QWidget& window, const KeptChoices::Presets& presets);

  PresetChanges Changes() const;

 private:
  void ShowCurrent();
  void CheckName(QListWidgetItem& item);
  void Delete();

  const KeptChoices::Presets& presets;
  QListWidget* const list = new QListWidget;
  QLabel* const notice = MakeLabel();
  QPushButton* const renaming = new QPushButton(Text("$$$/Studio/Preset/Rename=&Rename"));
  QPushButton* const deleting = new QPushButton(Text("$$$/Studio/Preset/Delete=&Delete"));
  PresetChanges deleted;
};

PresetsDialog::PresetsDialog(QWidget& window, const KeptChoices::Presets& shown)
    : QDialog(&window), presets(shown) {
  setObjectName("managePresets");
  setWindowTitle(Text("$$$/Studio/Preset/ManageTitle=Manage Presets"));
  setMinimumWidth(fontMetrics().averageCharWidth() * kDialogColumns);
  for (const auto& [name, entries] : presets) {
    auto* const item = new QListWidgetItem(name, list);
    item->setData(kSavedName, name);
    item->setData(kValidName, name);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
  }
  notice->setObjectName("presetNotice");
  renaming->setObjectName("renamePreset");
  deleting->setObjectName("deletePreset");
  auto* const buttons = new QVBoxLayout;
  for (QPushButton* button : {renaming, deleting}) {
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  buttons->addStretch();
  auto* const row = new QHBoxLayout;
  row->addWidget(list);
  row->addLayout(buttons);
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(row);
  layout->addWidget(notice);
  AddButtons(*this, *layout, Text("$$$/Studio/Box/OK=OK"));
  connect(list, &QListWidget::currentItemChanged, this, [this] { ShowCurrent(); });
  connect(list, &QListWidget::itemChanged, this,
          [this](QListWidgetItem* item) { CheckName(*item); });
  connect(renaming, &QPushButton::clicked, this, [this] { list->editItem(list->currentItem()); });
  connect(deleting, &QPushButton::clicked, this, [this] { Delete(); });
  list->setCurrentRow(0);
  ShowCurrent();
}

PresetChanges PresetsDialog::Changes() const {
  PresetChanges changes = deleted;
  for (int row = 0; row < list->count(); ++row) {
    const QString former = list->item(row)->data(kSavedName).toString();
    const QString name = list->item(row)->text();
    if (name != former) changes.emplace(former, name);
  }
  return changes;
}

void PresetsDialog::ShowCurrent() {
  const QListWidgetItem* const item = list->currentItem();
  for (QPushButton* button : {renaming, deleting}) button->setEnabled(item != nullptr);
  notice->setText(item ? DescriptionOf(presets.at(item->data(kSavedName).toString()))
                       : Text("$$$/Studio/Preset/Empty=There are no presets."));
}

/// Takes a name back that is empty or that another preset has.
void PresetsDialog::CheckName(QListWidgetItem& item) {
  const QString name = item.text().simplified().left(kMostCharacters);
  const auto same = list->findItems(name, Qt::MatchFixedString);
  const bool isTaken = same.size() > 1 || (same.size() == 1 && same.front() != &item);
  const QSignalBlocker blocker(list);
  if (!name.isEmpty() && !isTaken) item.setData(kValidName, name);
  item.setText(item.data(kValidName).toString());
  ShowCurrent();
  if (isTaken)
    notice->setText(Text("$$$/Studio/Preset/Taken=There is already a preset named \"%1\".", name));
}

void PresetsDialog::Delete() {
  const std::unique_ptr<QListWidgetItem> item(list->takeItem(list->currentRow()));
  deleted.emplace(item->data(kSavedName).toString(), QString());
  list->setFocus();
}

/// Asks for a name for these entries and says when it replaces a preset. Returns nothing when the
/// user cancelled.
std::optional<QString> AskForPresetName(QWidget& window, const KeptChoices::Presets& presets,
                                        const DialogEntries& entries) {
  QDialog dialog(&window);
  dialog.setObjectName("savePreset");
  dialog.setWindowTitle(Text("$$$/Studio/Preset/SaveTitle=Save Preset"));
  dialog.setMinimumWidth(dialog.fontMetrics().averageCharWidth() * kDialogColumns);
  auto* const name = new QLineEdit(DescriptionOf(entries));
  auto* const caption = MakeLabel(Text("$$$/Studio/Preset/Name=&Name:"));
  auto* const notice = MakeLabel();
  auto* const layout = new QVBoxLayout(&dialog);
  layout->addWidget(caption);
  layout->addWidget(name);
  layout->addWidget(notice);
  auto* const saving = AddButtons(dialog, *layout, Text("$$$/Studio/Preset/Save=&Save"));
  name->setMaxLength(kMostCharacters);
  name->selectAll();
  caption->setBuddy(name);
  notice->setObjectName("presetNotice");
  const auto showNotice = [&] {
    const QString typed = name->text().simplified();
    saving->setEnabled(!typed.isEmpty());
    notice->setText(
        presets.contains(typed)
            ? Text("$$$/Studio/Preset/Replaces=The preset \"%1\" will be replaced.", typed)
            : DescriptionOf(entries));
  };
  QObject::connect(name, &QLineEdit::textChanged, &dialog, showNotice);
  showNotice();
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return name->text().simplified();
}

/// Lets the user rename and delete presets. Returns nothing to change when they cancelled.
PresetChanges AskForPresetChanges(QWidget& window, const KeptChoices::Presets& presets) {
  PresetsDialog dialog(window, presets);
  return dialog.exec() == QDialog::Accepted ? dialog.Changes() : PresetChanges();
}

void Apply(const PresetChanges& changes, KeptChoices::Presets& presets) {
  std::vector<std::pair<QString, KeptChoices::Presets::node_type>> renamed;
  for (const auto& [former, name] : changes) {
    auto preset = presets.extract(former);
    if (preset.empty() || name.isEmpty()) continue;
    preset.key() = name;
    renamed.emplace_back(former, std::move(preset));
  }
  for (auto& [former, preset] : renamed) {
    if (presets.contains(preset.key())) preset.key() = former;  // another run took the name
    presets.insert(std::move(preset));
  }
}

/// A text as a menu shows it, where "&" would mark a mnemonic.
QString Caption(const QMenu& menu, const QString& text, int columns) {
  const QFontMetrics metrics = menu.fontMetrics();
  return metrics.elidedText(text, Qt::ElideRight, metrics.averageCharWidth() * columns)
      .replace('&', "&&");
}

QString SaveFailure() {
  return Text("$$$/Studio/Error/Presets=The presets cannot be saved.");
}

}  // namespace

PresetMenu::PresetMenu(StudioWindow& studioWindow, QMenu& filledMenu,
                       const ChoicesFile& choicesFile)
    : window(studioWindow), menu(filledMenu), file(choicesFile) {
  menu.setToolTipsVisible(true);
  QObject::connect(&menu, &QMenu::aboutToShow, &window, [this] { Fill(); });
}

void PresetMenu::Fill() {
  menu.clear();
  QAction* const save =
      menu.addAction(Text("$$$/Studio/Menu/SavePreset=&Save Preset…"), &window, [this] { Save(); });
  save->setObjectName("savePreset");
  save->setEnabled(window.EntriesOfMosaic().has_value());
  QAction* const manage = menu.addAction(Text("$$$/Studio/Menu/ManagePresets=&Manage Presets…"),
                                         &window, [this] { Manage(); });
  manage->setObjectName("managePresets");
  menu.addSeparator();
  KeptChoices kept;
  try {
    kept = file.Load();
  } catch (const StudioError& error) {
    const QString reason = Sentence(error.what());
    QAction* const notice = menu.addAction(Caption(menu, reason, kReasonColumns));
    notice->setToolTip(reason);
    notice->setEnabled(false);
  }
  for (const auto& [name, entries] : kept.presets) AddEntries(name, entries);
  if (kept.recent.empty()) return;
  menu.addSection(Text("$$$/Studio/Menu/RecentMosaics=Recent Mosaics"));
  for (const DialogEntries& entries : kept.recent) AddEntries(DescriptionOf(entries), entries);
}

void PresetMenu::AddEntries(const QString& caption, const DialogEntries& entries) {
  QAction* const action = menu.addAction(Caption(menu, caption, kNameColumns), &window,
                                         [this, entries] { window.Create(entries); });
  action->setToolTip(DescriptionOf(entries));  // the caption can be a name, or elided
  action->setEnabled(window.Shown() != nullptr);
}

void PresetMenu::Save() {
  window.Do(SaveFailure(), [this] {
    const std::optional<DialogEntries> entries = window.EntriesOfMosaic();
    const auto name = AskForPresetName(window, file.Load().presets, *entries);
    if (!name) return false;
    file.Change([&](KeptChoices& kept) {
      kept.presets.erase(*name);  // the case of the new name counts
      kept.presets.emplace(*name, *entries);
    });
    return true;
  });
}

void PresetMenu::Manage() {
  window.Do(SaveFailure(), [this] {
    const PresetChanges changes = AskForPresetChanges(window, file.Load().presets);
    if (changes.empty()) return false;
    file.Change([&](KeptChoices& kept) { Apply(changes, kept.presets); });
    return true;
  });
}
