#include <QElapsedTimer>
#include <QScopeGuard>

#include "studio/base/studio_error.h"
#include "studio/caller/dialog_choices.h"
#include "studio/caller/dialog_summary.h"
#include "studio/window/background_work.h"
#include "studio/window/live_preview.h"
#include "studio/window/settings.h"
#include "studio/window/studio_window.h"

namespace {

/// Restores the entries of the last dialog in the next one, and shows there why that is open again.
class EntryKeeper final : public qtui::DialogListener {
 public:
  /// `livePreview` may be null.
  EntryKeeper(const Picture& shown, const MosaicChoices& askedChoices, LivePreview* livePreview,
              DialogEntries firstEntries)
      : entries(std::move(firstEntries)),
        picture(shown),
        asked(askedChoices),
        preview(livePreview) {}

  void DialogOpening(nrvui::ui::UI_Dialog& dialog) override {
    notice = QStringList{notice, EnterAgain(dialog, entries)}.join(' ').trimmed();
    opened = EntriesIn(dialog);
    if (fieldAtFault != nullptr) FocusFirst(dialog, fieldAtFault);
  }
  std::optional<qtui::Summary> DialogChanged(
      const nrvui::ui::UI_Dialog& dialog,
      const std::optional<qtui::PendingEntry>& pending) override {
    entries = EntriesIn(dialog);
    const Forecast forecast = ForecastFor(entries, asked, pending);
    if (preview != nullptr) preview->Sync(forecast.choices);
    if (!notice.isEmpty() && entries == opened && !pending) return qtui::Summary{notice, true};
    return SummaryFor(picture, forecast);
  }

  DialogEntries entries;
  QString notice;  // shown until the user changes something
  const char* fieldAtFault = nullptr;

 private:
  const Picture& picture;
  const MosaicChoices& asked;
  LivePreview* preview;
  std::optional<DialogEntries> opened;
};

}  // namespace

const StudioWindow::Confirmed* StudioWindow::ConfirmedForShown() const {
  if (!Shown()) return nullptr;
  const auto found = confirmed.find({Shown()->path, Shown()->isSizeKnown});
  return found == confirmed.end() ? nullptr : &found->second;
}

std::optional<DialogEntries> StudioWindow::EntriesOfMosaic() const {
  const Confirmed* const made = ConfirmedForShown();
  if (!made) return std::nullopt;
  return EntriesForOtherPictures(made->entries, made->choices);
}

void StudioWindow::Create(const DialogEntries& entries) {
  Do(Text("$$$/Studio/Error/Create=The mosaic cannot be created."), [&] {
    const auto last = LastChoices();
    const ArtworkPtr shown = Shown();
    const Confirmed* const former = ConfirmedForShown();
    std::optional<Built> built = AskUntilBuilt(
        former ? ChoicesFor(*shown, last, former->choices) : ChoicesFor(*shown, last), entries);
    if (!built) return false;
    document.Change(Text("$$$/Studio/Undo/Create=Create Tesserae"),
                    WithMosaic(*shown, std::move(built->mosaic)));
    ShowDocument();
    const MosaicParameters& params = built->choices.params;
    const uint64_t count = uint64_t(params.tilesAcross) * params.tilesDown;
    Tell(PluralText("$$$/Studio/Status/Built=Built %1 tile in %2 s.", "Built %1 tiles in %2 s.",
                    count, NumberForUser(double(count)), NumberForUser(built->seconds, 1)));
    KeepChoices(*ConfirmedForShown());
    return true;
  });
}

std::optional<MosaicChoices> StudioWindow::LastChoices() {
  if (lastChoices) return lastChoices;
  try {
    return choicesFile.Load().last;
  } catch (const StudioError&) {
    if (choicesFile.IsNamed()) throw;
    Tell(
        Text("$$$/Studio/Status/ChoicesUnreadable=Your last choices cannot be read. The dialog "
             "starts with the defaults."));
    return std::nullopt;
  }
}

void StudioWindow::KeepChoices(const Confirmed& made) {
  lastChoices = made.choices;
  try {
    choicesFile.Change([&](KeptChoices& kept) { kept.AddMosaic(made.choices, made.entries); });
  } catch (const StudioError&) {  // the mosaic is finished all the same
    Tell(Text("$$$/Studio/Status/ChoicesNotKept=Your choices cannot be saved."));
  }
}

std::optional<StudioWindow::Built> StudioWindow::AskUntilBuilt(const MosaicChoices& asked,
                                                               DialogEntries entries) {
  const ArtworkPtr shown = Shown();
  std::optional<LivePreview> preview;
  if (actions.preview->isChecked()) preview.emplace(*canvas, shown, asked);
  EntryKeeper keeper(shown->picture, asked, preview ? &*preview : nullptr, std::move(entries));
  presenter.AddListener(keeper);
  const auto removeKeeper = qScopeGuard([&] { presenter.RemoveListener(keeper); });
  for (std::optional<QPoint> reopensAt;; reopensAt = presenter.LastPosition()) {
    MosaicChoices choices = asked;
    if (!Ask(choices, reopensAt)) return std::nullopt;
    confirmed[{shown->path, shown->isSizeKnown}] = {choices, keeper.entries};
    actions.tesseraeAgain->setEnabled(true);
    QElapsedTimer clock;
    clock.start();
    try {
      if (auto mosaic = BuildMosaic(*this, shown->picture, choices)) {
        return Built{choices, std::move(*mosaic), double(clock.elapsed()) / 1000};
      }
      if (closesAfterWork) return std::nullopt;
      keeper.notice = Text("$$$/Studio/Line/Stopped=The mosaic was cancelled.");
    } catch (const ChoiceError& error) {
      keeper.notice = Sentence(error.what());
      keeper.fieldAtFault = error.Field();
    } catch (const std::exception& error) {
      keeper.notice = Sentence(ReasonText(error));
    }
  }
}

bool StudioWindow::Ask(MosaicChoices& choices, const std::optional<QPoint>& reopensAt) {
  const QVariant moved = settings::kDialogPosition.Get();
  presenter.OpenBeside(canvas->ArtOnScreen());
  presenter.OpenAt(reopensAt || !moved.isValid() ? reopensAt : moved.toPoint());
  presenter.ShareInputWith(this);
  actions.blocked->setEnabled(false);
  const auto unblock = qScopeGuard([this] {
    actions.blocked->setEnabled(true);
    presenter.ShareInputWith(nullptr);
    if (presenter.WasMoved()) settings::kDialogPosition.Set(presenter.LastPosition());
  });
  const nrvui::ui::InstalledPresenter installed(presenter);
  return Caller().Ask(choices.params, choices.state);
}
