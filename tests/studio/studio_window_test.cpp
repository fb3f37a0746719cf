#include "studio/window/studio_window.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QAccessible>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QColorSpace>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <csignal>

#include "platform/nrvcore/localizer.h"
#include "platform/qt/theme.h"
#include "platform/standin/host.h"
#include "platform/standin/resources.h"
#include "studio/export/mosaic_export.h"
#include "studio/window/file_dialogs.h"
#include "studio/window/settings.h"
#include "tests/studio/studio_folder.h"
#include "tests/support/contrast.h"
#include "tests/support/function_listener.h"

namespace {

QStringList warnings;

void NoteWarning(QtMsgType, const QMessageLogContext&, const QString& message) {
  // The platform without a screen says so whenever a box has a fixed size.
  if (!message.contains("propagateSizeHints")) warnings += message;
}

/// The window over a folder of its own.
class StudioWindowTest : public StudioFolder {
 protected:
  StudioWindowTest() {
    warnings.clear();
    Speak("en");
    // A box that nobody closes would keep its test waiting.
    watchdog.callOnTimeout([] {
      QWidget* const box = QApplication::activeModalWidget();
      if (!box) return;
      ADD_FAILURE() << "nobody closes " << box->objectName().toStdString();
      box->close();
    });
    watchdog.start(20000);
  }
  ~StudioWindowTest() override {
    EXPECT_EQ(warnings.join('\n').toStdString(), "");
    Speak("en");
  }

  void TearDown() override {
    if (window && !HasFatalFailure()) Close();
  }

  static void Speak(const char* language) {
    nrvcore::config::Localizer::Get().SetLanguage(language);
  }

  /// Waits for a box of that name, in the event loop that it runs, and hands it over. Stays out of
  /// the way when none comes.
  template <typename Box>
  void WhenOpen(const char* name, std::function<void(Box&)> hook) {
    auto* const timer = new QTimer(&hooks);
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
      for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* const box = qobject_cast<Box*>(widget);
        if (!box || !box->isVisible() || box->objectName() != name) continue;
        timer->deleteLater();
        timer->stop();
        return hook(*box);
      }
    });
    timer->start(10);
  }

  /// Closes the next box of that name, and keeps what it says, which is never taken for markup.
  void Hear(const char* name, QString& text) {
    WhenOpen<QMessageBox>(name, [&text](QMessageBox& box) {
      for (const QLabel* label : box.findChildren<QLabel*>())
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
      text = box.windowTitle() + "|" + box.text() + "|" + box.informativeText();
      box.close();
    });
  }

  void Open(const char* state = "state") {
    window.emplace(Path(state), presenter);
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&*window));
  }
  void OpenPicture() {
    Open();
    ASSERT_TRUE(window->OpenPicture(Path("in.png")));
  }
  void Close() {
    EXPECT_TRUE(window->close());
    EXPECT_NO_THROW(window->CloseModule());
    window.reset();
  }
  void Play(const char* gestures) {
    presenter.PlayScript(nrvui::gestures::GestureScript::Parse(gestures, "test"));
  }
  /// Answers whether there is a new mosaic.
  bool Create() {
    const ArtworkPtr before = window->Shown();
    Action("createTesserae").trigger();
    return window->Shown() != before;
  }
  bool Create(const char* gestures) {
    Play(gestures);
    return Create();
  }
  /// The next time that the person is asked where to export to, they type this.
  void Type(const QString& name) {
    WhenOpen<QDialog>("export", [name](QDialog& dialog) {
      dialog.findChild<QLineEdit*>()->setText(name);
      dialog.accept();
    });
  }
  void Export(const char* name) {
    Type(name);
    Action("export").trigger();
    EXPECT_FALSE(window->isWindowModified());
  }
  /// The script plays in the first dialog; `person` has the one that comes again, then cancels.
  void CreateTwice(const char* gestures, const std::function<void(QWidget&)>& person) {
    int dialogs = 0;
    listener.WhenPainted([&](QWidget& dialog) {
      if (++dialogs == 1) return;
      person(dialog);
      dialog.close();
    });
    EXPECT_FALSE(Create(gestures));
    EXPECT_EQ(dialogs, 2);
    listener.WhenPainted({});
  }
  static QString Message(const QWidget& dialog) {
    return dialog.findChild<QWidget*>("messages")->findChildren<QLabel*>().back()->text();
  }
  /// Names of the actions that can be used now.
  QString Usable() const {
    QStringList names;
    for (const QAction* action : window->findChildren<QAction*>())
      if (action->isEnabled()) names += action->objectName();
    names.removeAll({});
    return names.join(' ');
  }
  QAction& Action(const char* name) const { return *window->findChild<QAction*>(name); }
  QString Summary() const { return window->findChild<QLabel*>("summary")->text(); }
  QImage Canvas() const { return window->findChild<::Canvas*>()->grab().toImage(); }

  qtui::QtPresenter presenter;
  FunctionListener listener{presenter};
  std::optional<StudioWindow> window;
  QObject hooks;
  QTimer watchdog;
};

constexpr const char* kTwelveByEight =
    "enter HorizontalCountTxt 12\nenter VerticalCountTxt 8\nkey Return";

TEST_F(StudioWindowTest, TheCanvasShowsWhatOkWouldBuildWhileTheDialogIsOpen) {
  OpenPicture();
  const QImage picture = Canvas();
  QImage preview;
  QString said;
  const auto look = [&](QWidget& dialog) {
    QTest::qWait(300);
    preview = Canvas();
    said = Message(dialog);
    EXPECT_FALSE(window->findChild<::Canvas*>()->ArtOnScreen().isEmpty());
  };
  listener.WhenPainted([&](QWidget& dialog) {
    QTimer::singleShot(0, &dialog, [&] {
      look(dialog);
      dialog.close();
    });
  });
  EXPECT_FALSE(Create());
  EXPECT_NE(preview, picture);
  EXPECT_TRUE(said.startsWith("6,700 tiles of 0.6 by 0.597 pt")) << said.toStdString();
  EXPECT_EQ(Canvas(), picture);  // cancelled

  Action("previewWhileChoosing").trigger();
  EXPECT_FALSE(Create());
  EXPECT_EQ(preview, picture);
  Action("previewWhileChoosing").trigger();

  listener.WhenPainted([&](QWidget& dialog) {
    QTimer::singleShot(0, &dialog, [&] {
      look(dialog);
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
  });
  EXPECT_TRUE(Create());
  EXPECT_EQ(preview, Canvas());

  // A number that is being typed counts, with the limit that it gives the spacing.
  listener.WhenPainted([&](QWidget& dialog) {
    QTimer::singleShot(0, &dialog, [&] {
      const auto type = [&](const char* field, const char* text) {
        dialog.findChild<QWidget*>(field)->setFocus();
        QTest::keyClicks(dialog.focusWidget(), text);
      };
      type("TileSpaceVertTxt", "4");
      type("VerticalCountTxt", "5.5");
      QTest::qWait(200);
      look(dialog);
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
  });
  EXPECT_TRUE(Create());
  EXPECT_EQ(preview, Canvas());
  EXPECT_EQ(said.toStdString(),
            "500 tiles of 0.6 by 5.6 pt. Tile numbers are rounded down: 100 by 5. Spacing is "
            "rounded down to whole points: 0 by 3 pt.");
  Export("out.svg");
}

TEST_F(StudioWindowTest, OnlyTheViewCanBeChangedWhileTheDialogIsOpen) {
  OpenPicture();
  const QImage picture = Canvas();
  auto& compare = *qobject_cast<QAbstractButton*>(
      window->findChild<QToolBar*>()->widgetForAction(&Action("compare")));
  EXPECT_FALSE(compare.isEnabled()) << "there is no mosaic yet";
  listener.WhenPainted([&](QWidget& dialog) {
    QTimer::singleShot(0, &dialog, [&] {
      QTest::qWait(300);
      EXPECT_EQ(Usable(), "zoomIn zoomOut actualSize fit zoom compare");
      EXPECT_FALSE(window->close());
      const QImage preview = Canvas();
      QTest::keyPress(&dialog, Qt::Key_F8);
      EXPECT_EQ(Canvas(), picture);
      QTest::mousePress(&compare, Qt::LeftButton);
      QTest::keyRelease(&dialog, Qt::Key_F8, Qt::ShiftModifier);
      EXPECT_EQ(Canvas(), picture) << "the button is still held";
      QTest::mouseRelease(&compare, Qt::LeftButton);
      EXPECT_EQ(Canvas(), preview);

      auto& canvas = *window->findChild<::Canvas*>();
      const double fitted = canvas.Zoom();
      QTest::keyClick(&dialog, Qt::Key_Plus, Qt::ControlModifier);
      EXPECT_GT(canvas.Zoom(), fitted) << "from the dialog";
      Action("fit").trigger();

      auto& width = *dialog.findChild<QWidget*>("NewWidthTxt")->findChild<QLineEdit*>();
      width.setFocus();
      width.selectAll();
      QTest::keyClicks(&width, "30\t");
      QTest::qWait(50);
      EXPECT_TRUE(Summary().contains("30 × 40 pt")) << Summary().toStdString();
      dialog.close();
    });
  });
  EXPECT_FALSE(Create());
  EXPECT_TRUE(Action("open").isEnabled());
  EXPECT_TRUE(Summary().startsWith("60 × 40 pt")) << Summary().toStdString();
}

TEST_F(StudioWindowTest, TheDialogOpensWhereItWasMovedAndAtTheFieldAtFault) {
  OpenPicture();
  QPoint expected;
  QString focused;
  int dialogs = 0;
  const auto person = [&](QWidget& dialog) {
    const QPoint position = dialog.pos();
    EXPECT_TRUE(++dialogs == 1 || position == expected) << dialogs;
    if (dialog.focusWidget()) focused = dialog.focusWidget()->objectName();
    if (dialogs == 1) {
      expected = position + QPoint(-40, -30);
      dialog.move(expected);
    }
  };
  listener.WhenPainted([&](QWidget& dialog) {
    person(dialog);
    if (dialogs == 2) dialog.close();
  });
  EXPECT_FALSE(Create("enter NewHeightTxt 0\nkey Return"));
  EXPECT_EQ(dialogs, 2);
  EXPECT_EQ(focused, "NewHeightTxt");
  Close();
  OpenPicture();
  EXPECT_FALSE(Create("key Escape"));
  EXPECT_EQ(dialogs, 3);
  listener.WhenPainted({});
}

TEST_F(StudioWindowTest, TellsAssistiveTechnologyWhatIsThere) {
  OpenPicture();
  Action("copy").trigger();
  const auto accessible = [&](QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget);
  };
  EXPECT_EQ(accessible(window->findChild<QWidget*>("announcement"))->text(QAccessible::Name),
            "Copied.");
  auto* const artboard = accessible(window->findChild<::Canvas*>());
  EXPECT_EQ(artboard->role(), QAccessible::Canvas);
  EXPECT_EQ(artboard->childCount(), 0);
  EXPECT_EQ(artboard->text(QAccessible::Name), "Artboard");
  EXPECT_TRUE(artboard->text(QAccessible::Description).startsWith("in.png, 60 × 40 pt"));
  bool hasZoomAction = false;
  for (QToolButton* button : window->findChildren<QToolButton*>()) {
    const QString description = accessible(button)->text(QAccessible::Description);
    EXPECT_FALSE(description.contains('<')) << description.toStdString();
    hasZoomAction |= button->defaultAction() == &Action("zoom") &&
                     !accessible(button)->actionInterface()->actionNames().isEmpty();
  }
  EXPECT_TRUE(hasZoomAction);
}

TEST_F(StudioWindowTest, MosaicReplacesThePictureAndEnablesItsCommands) {
  OpenPicture();
  EXPECT_EQ(Summary(), "60 × 40 pt   ·   21.2 × 14.1 mm");
  EXPECT_EQ(Usable(),
            "open quit undo copy paste createTesserae zoomIn zoomOut "
            "actualSize fit previewWhileChoosing about zoom");
  const QImage picture = Canvas();
  ASSERT_TRUE(Create(kTwelveByEight));
  EXPECT_EQ(window->Shown()->mosaic->tiles.size(), QSize(12, 8));
  EXPECT_TRUE(Summary().startsWith("12 × 8 tiles")) << Summary().toStdString();
  EXPECT_EQ(Usable(),
            "open export exportAgain quit undo copy paste createTesserae "
            "createTesseraeAgain zoomIn zoomOut actualSize fit previewWhileChoosing "
            "about zoom compare");
  EXPECT_TRUE(window->isWindowModified());
  EXPECT_NE(Canvas(), picture);
  Export("a.svg");
  EXPECT_EQ(Load("a.svg").count("<rect "), 96);
}

TEST_F(StudioWindowTest, UndoAndRedoGoThroughEveryStep) {
  OpenPicture();
  const QImage picture = Canvas();
  ASSERT_TRUE(Create(kTwelveByEight));
  const QImage mosaic = Canvas();
  Action("undo").trigger();
  EXPECT_FALSE(window->Shown()->mosaic);
  EXPECT_EQ(Canvas(), picture);
  EXPECT_EQ(Action("undo").text() + Action("redo").text(),
            "&Undo Place Picture&Redo Create Tesserae");
  Action("redo").trigger();
  EXPECT_EQ(Canvas(), mosaic);
  Export("a.svg");
  Action("undo").trigger();
  Action("undo").trigger();
  EXPECT_FALSE(window->Shown());
  EXPECT_TRUE(window->findChild<::Canvas*>()->ArtOnScreen().isEmpty());
}

TEST_F(StudioWindowTest, NextRunStartsWithTheLastChoicesAndRecentPicture) {
  Open();
  const auto canOpenRecent = [&] {
    for (const QMenu* menu : window->findChildren<QMenu*>())
      if (menu->title() == "Open &Recent") return menu->isEnabled();
    throw std::logic_error("no such menu");
  };
  EXPECT_FALSE(canOpenRecent()) << "no picture has been opened yet";
  Close();
  OpenPicture();
  ASSERT_TRUE(Create(kTwelveByEight));
  Export("a.svg");
  Close();
  OpenPicture();
  EXPECT_TRUE(canOpenRecent());
  EXPECT_EQ(settings::RecentPictures(), QStringList(Path("in.png")));
  EXPECT_TRUE(Create("key Return"));
  EXPECT_EQ(window->Shown()->mosaic->tiles.size(), QSize(12, 8));
  Export("b.svg");
}

TEST_F(StudioWindowTest, PngDialogKeepsWidthHeightAndResolutionConsistent) {
  OpenPicture();
  ASSERT_TRUE(Create(kTwelveByEight));
  Type("a.png");
  WhenOpen<QDialog>("pngSize", [this](QDialog& dialog) {
    const auto shown = [&] {
      QStringList texts;
      for (const char* field : {"pngWidth", "pngHeight", "pngResolution"})
        texts += dialog.findChild<QWidget*>(field)->findChild<QLineEdit*>()->text();
      return texts.join(' ').toStdString();
    };
    const auto enter = [&](const char* field, const char* text) {
      auto& edit = *dialog.findChild<QWidget*>(field)->findChild<QLineEdit*>();
      edit.setFocus();
      edit.selectAll();
      QTest::keyClicks(&edit, text);
      QTest::keyClick(&edit, Qt::Key_Tab);
    };
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    EXPECT_EQ(shown(), "1608 1072 1929.6");
    EXPECT_TRUE(Message(dialog).contains("134 pixels from tile to tile, a whole number"));
    enter("pngWidth", "40000");
    EXPECT_TRUE(Message(dialog).contains("40000 is more than 19596"))
        << Message(dialog).toStdString();
    EXPECT_EQ(shown(), "19596 13064 23515.1");
    for (const char* number : {"13064", "1072"}) enter("pngHeight", number);
    EXPECT_TRUE(Message(dialog).startsWith("Proposed")) << Message(dialog).toStdString();
    EXPECT_EQ(dialog.parentWidget(), &*window);
    enter("pngResolution", "36");
    EXPECT_EQ(shown(), "30 20 36");
    enter("pngHeight", "60");
    EXPECT_EQ(shown(), "90 60 108");
    EXPECT_TRUE(Message(dialog).contains("7.5 pixels from tile to tile"))
        << Message(dialog).toStdString();
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  Action("export").trigger();
  EXPECT_EQ(QImage(Path("a.png")).size(), QSize(90, 60));
}

TEST_F(StudioWindowTest, ExportAgainRepeatsTheLastExportWithoutQuestions) {
  OpenPicture();
  ASSERT_TRUE(Create(kTwelveByEight));
  Type("a.png");
  WhenOpen<QDialog>("pngSize", [](QDialog& dialog) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    auto& width = *dialog.findChild<QWidget*>("pngWidth")->findChild<QLineEdit*>();
    width.setFocus();
    width.selectAll();
    QTest::keyClicks(&width, "90");
    QTest::keyClick(&width, Qt::Key_Tab);
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  Action("export").trigger();
  ASSERT_TRUE(QFile::remove(Path("a.png")));
  Action("exportAgain").trigger();
  EXPECT_EQ(QImage(Path("a.png")).size(), QSize(90, 60));
  EXPECT_EQ(settings::kExportEnding.Get(), ".png");
  WhenOpen<QDialog>("export", [&](QDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), "in mosaic.png") << "the format of last time";
    dialog.reject();
  });
  Action("export").trigger();
}

TEST_F(StudioWindowTest, AsksBeforeALargeExportAlsoWhenItExportsAgain) {
  OpenPicture();
  ASSERT_TRUE(Create("key Return"));
  Export("a.svg");
  ASSERT_TRUE(Create("enter HorizontalCountTxt 4000\nenter VerticalCountTxt 4000\nkey Return"));
  ASSERT_TRUE(QFile::remove(Path("a.svg")));
  QString question;
  Hear("largeExport", question);
  Action("exportAgain").trigger();
  EXPECT_TRUE(question.contains(" GB")) << question.toStdString();
  EXPECT_FALSE(QFile::exists(Path("a.svg")));
  EXPECT_TRUE(window->isWindowModified());
  Action("undo").trigger();  // closing asks about mosaics that are not exported
}

TEST_F(StudioWindowTest, OpensAnImageOfADrawingAndExportsTheDrawing) {
  const QByteArray kRest = "<rect id='photo-mosaic'/><image href='none.png' id='b'/></svg>";
  const QByteArray kStart = "<svg xmlns='http://www.w3.org/2000/svg' width='60' height='40'>";
  Save("drawing.svg", kStart + "<image id='photo' href='in.png'/>" + kRest);
  Open();
  const auto open = [&](int row) {
    WhenOpen<QDialog>("imageChoice", [row](QDialog& dialog) {
      auto& list = *dialog.findChild<QListWidget*>();
      EXPECT_EQ(list.count(), 3);
      list.setCurrentRow(row);
      row < 0 ? dialog.reject() : dialog.accept();
    });
    return window->OpenPicture(Path("drawing.svg"));
  };
  EXPECT_FALSE(open(-1));
  QString error;
  Hear("error", error);
  EXPECT_FALSE(open(1));
  EXPECT_TRUE(error.contains("none.png")) << error.toStdString();
  ASSERT_TRUE(open(2));
  EXPECT_TRUE(window->Shown()->path.endsWith("/drawing.svg")) << "the whole drawing";
  ASSERT_TRUE(open(0));
  EXPECT_EQ(window->Shown()->Size(), QSizeF(45, 30)) << "60 by 40 pixels of 1/96 inch";
  EXPECT_TRUE(window->windowTitle().contains("drawing.svg#photo"));
  EXPECT_TRUE(Create("enter HorizontalCountTxt 3\nenter VerticalCountTxt 2\nkey Return\n"));
  Export("made.svg");
  const QByteArray made = Load("made.svg");
  EXPECT_TRUE(made.startsWith(kStart + "<g id=\"photo\"")) << made.toStdString();
  EXPECT_TRUE(made.endsWith("</g>" + kRest));
  EXPECT_EQ(made.count("<rect x="), 6);
  Export("made.pdf");
  EXPECT_TRUE(Load("made.pdf").startsWith("%PDF")) << "the mosaic alone";
}

TEST_F(StudioWindowTest, TakesWhatIsDroppedAndSaysWhatItCannotTake) {
  Open();
  Save("text.png", {});
  const auto drop = [&](const QStringList& names) {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& name : names) urls += QUrl::fromLocalFile(Path(name));
    data.setUrls(urls);
    const QImage before = window->grab().toImage();
    for (const bool leaves : {true, false}) {
      QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
      QApplication::sendEvent(&*window, &enter);
      EXPECT_TRUE(enter.isAccepted());
      EXPECT_NE(window->grab().toImage(), before) << "a frame says so";
      QDragLeaveEvent leave;
      if (leaves) QApplication::sendEvent(&*window, &leave);
    }
    QDropEvent event({9, 9}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                     Qt::ShiftModifier);
    QApplication::sendEvent(&*window, &event);
    EXPECT_EQ(event.dropAction(), Qt::CopyAction) << "the file stays where it is";
    QTest::qWait(1);
  };
  const QImage uninvited = window->grab().toImage();
  QMimeData words;
  words.setText("in.png");
  QDragEnterEvent enterWords({9, 9}, Qt::CopyAction, &words, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&*window, &enterWords);
  EXPECT_FALSE(enterWords.isAccepted());
  EXPECT_EQ(window->grab().toImage(), uninvited);
  drop({"in.png", "other.png"});
  ASSERT_TRUE(QTest::qWaitFor([&] { return window->Shown() != nullptr; }));
  EXPECT_EQ(window->statusBar()->currentMessage(),
            "Opened in.png. Only one picture can be dropped at a time; other.png was not opened.");

  QString text;
  Hear("error", text);
  drop({"in.png", "other.png", "text.png"});
  EXPECT_TRUE(QTest::qWaitFor([&] {
    return window->statusBar()->currentMessage().endsWith("time; 2 others were not opened.");
  }));
  const ArtworkPtr placed = window->Shown();
  drop({"text.png"});
  ASSERT_TRUE(QTest::qWaitFor([&] { return !text.isEmpty(); }));
  EXPECT_TRUE(text.contains("cannot be opened") && text.contains("is empty")) << text.toStdString();
  EXPECT_EQ(window->Shown(), placed);
}

TEST_F(StudioWindowTest, APictureOfUnknownSizeLeadsToPercentages) {
  Open();
  window->SetSizeUnknown(true);
  ASSERT_TRUE(window->OpenPicture(Path("in.png")));
  EXPECT_EQ(Summary(), "Size unknown");
  const QImage unknown = Canvas();
  QString shownWidth;
  QWidget* owner = nullptr;
  listener.WhenPainted([&](QWidget& dialog) {
    shownWidth = dialog.findChild<QLabel*>("OrigWidthStatic")->text();
    owner = dialog.parentWidget();
  });
  EXPECT_TRUE(
      Create("enter HorizontalCountTxt 12\nenter TileSpaceHorzTxt 1\nclick DeleteRasterChk\n"
             "enter NewWidthTxt 50\nkey Return"));
  EXPECT_EQ(shownWidth, "N/A");
  EXPECT_EQ(owner, &*window);
  EXPECT_NEAR(window->Shown()->Size().width(), 30, 0.01);
  EXPECT_EQ(window->Shown()->mosaic->below.size(), QSize(60, 40)) << "the raster stays";
  Export("a.svg");

  window->SetSizeUnknown(false);
  ASSERT_TRUE(window->OpenPicture(Path("in.png")));
  EXPECT_NE(Canvas(), unknown) << "its size stands above it";
  EXPECT_FALSE(Create("key Escape"));
  EXPECT_EQ(shownWidth, "60 pt");
}

TEST_F(StudioWindowTest, SaysWhyThereIsNoMosaicInThePersonsLanguage) {
  OpenPicture();
  QString text;
  Hear("error", text);
  Save("state", "a person's notes");
  ASSERT_FALSE(Create("key Return"));
  EXPECT_TRUE(text.contains("state cannot be read")) << text.toStdString();
  EXPECT_EQ(Load("state"), "a person's notes");
  QFile::remove(Path("state"));

  Speak("de");
  EXPECT_FALSE(Create("key Escape"));
  CreateTwice("enter NewHeightTxt 0\nkey Return",
              [&](const QWidget& dialog) { text = Message(dialog); });
  EXPECT_FALSE(window->Shown()->mosaic);
  EXPECT_TRUE(text.startsWith("Die neue Höhe muss ")) << text.toStdString();
  EXPECT_TRUE(text.endsWith("größer als 0 sein.")) << text.toStdString();
  Hear("about", text);
  Action("about").trigger();
  EXPECT_TRUE(text.startsWith("Über Tesserae Studio|Tesserae Studio|Plug-in TesseraeUI: Macht aus"))
      << text.toStdString();
  standin::Host::Current().Operations().Throw("KDM Basic Suite/ShowAboutBox",
                                              std::make_exception_ptr(7));
  Hear("error", text);
  Action("about").trigger();
  EXPECT_TRUE(text.contains("|Über das Modul ")) << text.toStdString();
  EXPECT_TRUE(text.contains("Etwas Unerwartetes ist schiefgegangen")) << text.toStdString();

  Close();
  Speak("en");
  Open("in.png/state");
  ASSERT_TRUE(window->OpenPicture(Path("in.png")));
  EXPECT_TRUE(Create("key Return")) << "though its choices find no place";
  EXPECT_EQ(window->statusBar()->currentMessage(), "Your choices cannot be saved.");
  Export("a.svg");
}

TEST_F(StudioWindowTest, PresetsAreSavedRenamedDeletedAndAppliedToAnyPicture) {
  QMenu* menu = nullptr;
  const auto choose = [&](const QString& caption) {
    emit menu->aboutToShow();
    for (QAction* action : menu->actions()) {
      if (action->text() != caption || !action->isEnabled()) continue;
      action->trigger();
      return true;
    }
    return false;
  };
  const auto save = [&](const char* name, const char* notice) {
    WhenOpen<QDialog>("savePreset", [=](QDialog& dialog) {
      dialog.findChild<QLineEdit*>()->setText(name);
      EXPECT_EQ(dialog.findChild<QLabel*>("presetNotice")->text(), notice);
      dialog.accept();
    });
    EXPECT_TRUE(choose("&Save Preset…"));
  };
  OpenPicture();
  menu = window->findChild<QMenu*>("presets");
  EXPECT_FALSE(choose("&Save Preset…")) << "there is no mosaic yet";
  ASSERT_TRUE(
      Create("enter HorizontalCountTxt 12.5\nenter VerticalCountTxt 8\nclick GrayRadio\n"
             "enter TileSpaceHorzTxt 1.5\nkey Return"));
  const QString description = "12 by 8 tiles, grey, spacing 1 by 0 pt";
  save("R&D", qPrintable(description));
  save("r&d", "The preset \"r&d\" will be replaced.");
  ASSERT_TRUE(Create("enter HorizontalCountTxt 7\nenter NewWidthTxt 30\nkey Return"));
  save("Poster", "7 by 8 tiles, grey, 30 by 40 pt");

  Export("a.svg");

  // Another picture, whose own size replaces that of the first one.
  ASSERT_TRUE(QImage(Path("in.png")).scaled(80, 50).save(Path("other.png")));
  ASSERT_TRUE(window->OpenPicture(Path("other.png")));
  Play("key Return");
  for (const QString& caption : {QString("r&&d"), description}) {
    ASSERT_TRUE(choose(caption)) << caption.toStdString();
    const MosaicGeometry& geometry = window->Shown()->mosaic->geometry;
    EXPECT_EQ(window->Shown()->mosaic->tiles.size(), QSize(12, 8));
    EXPECT_EQ(geometry.size.toSize(), QSize(80, 50));
    EXPECT_EQ(geometry.spacing, QSizeF(1, 0));
    EXPECT_TRUE(choose("Poster"));
    EXPECT_EQ(window->Shown()->mosaic->geometry.size.toSize(), QSize(30, 40));
  }

  WhenOpen<QDialog>("managePresets", [](QDialog& dialog) {
    auto& list = *dialog.findChild<QListWidget*>();
    list.item(0)->setText("R&D");
    EXPECT_EQ(list.item(0)->text(), "Poster") << "taken";
    list.item(0)->setText("  Large poster ");
    list.setCurrentRow(1);
    dialog.findChild<QPushButton*>("deletePreset")->click();
    dialog.accept();
  });
  EXPECT_TRUE(choose("&Manage Presets…"));
  EXPECT_FALSE(choose("Poster") || choose("r&&d"));
  EXPECT_TRUE(choose("Large poster"));

  // A damaged file is reported and stays as it is.
  Save("state", "[");
  QString text;
  Hear("error", text);
  EXPECT_TRUE(choose("&Save Preset…"));
  EXPECT_TRUE(text.contains("cannot be read: line 1 is not valid JSON.")) << text.toStdString();
  EXPECT_EQ(Load("state"), "[");
  emit menu->aboutToShow();
  EXPECT_FALSE(menu->actions().back()->isEnabled());
  EXPECT_TRUE(menu->actions().back()->toolTip().endsWith("line 1 is not valid JSON."));
  Export("b.svg");
}

TEST_F(StudioWindowTest, EntriesComeBackAsTheyWere) {
  OpenPicture();
  int seen = 0;
  const auto expectEntries = [&](const QWidget& dialog) {
    ++seen;
    for (const auto& [field, text] :
         {std::pair("NewWidthTxt", "33.3333 %"), std::pair("NewHeightTxt", "0 %"),
          std::pair("HorizontalCountTxt", "12"), std::pair("TileSpaceHorzTxt", "2.5 pt")})
      EXPECT_EQ(dialog.findChild<QWidget*>(field)->findChild<QLineEdit*>()->text(), text);
    EXPECT_TRUE(dialog.findChild<QAbstractButton*>("GrayRadio")->isChecked());
    EXPECT_FALSE(dialog.findChild<QAbstractButton*>("DeleteRasterChk")->isChecked());
  };
  EXPECT_FALSE(Action("createTesseraeAgain").isEnabled());
  CreateTwice(
      "click UsePercentChk\nenter NewWidthTxt 33.33333\nenter NewHeightTxt 0\n"
      "enter HorizontalCountTxt 12\nenter TileSpaceHorzTxt 2.5\nclick GrayRadio\n"
      "click DeleteRasterChk\nkey Return",
      expectEntries);
  presenter.PlayScript(nrvui::gestures::GestureScript::Parse("", "test"));
  listener.WhenPainted(expectEntries);
  Action("createTesseraeAgain").trigger();
  EXPECT_EQ(seen, 2);
  CreateTwice(
      "click VerticalRadio\nenter VerticalCountTxt 8640\nclick MosaicUseRatioButton\n"
      "enter NewHeightTxt 0\nkey Return",
      [](const QWidget& dialog) {
        EXPECT_TRUE(Message(dialog).contains("12960 is more than 8640")) << "no gesture puts it";
      });
}

/// Names of all that assistive technology finds visible below an object and that can be used.
QStringList UsableNames(QAccessibleInterface& object) {
  QStringList names;
  for (int i = 0; i < object.childCount(); ++i) {
    QAccessibleInterface* const child = object.child(i);
    if (!child || child->state().invisible) continue;
    const auto role = child->role();
    if (child->state().focusable || role == QAccessible::Button || role == QAccessible::Graphic)
      names += child->text(QAccessible::Name);
    names += UsableNames(*child);
  }
  return names;
}

TEST_F(StudioWindowTest, EverythingHasAPlainName) {
  QFile::copy(Path("in.png"), Path("a & b.png"));
  OpenPicture();
  ASSERT_TRUE(window->OpenPicture(Path("a & b.png")));
  QStringList names = UsableNames(*QAccessible::queryAccessibleInterface(&*window));
  Close();
  Open();
  names += UsableNames(*QAccessible::queryAccessibleInterface(&*window));
  EXPECT_FALSE(names.contains("")) << names.join('|').toStdString();
  for (const char* name : {"Artboard", "Undo", "a & b.png"})
    EXPECT_TRUE(names.contains(name)) << name;
  auto& recent = *window->findChild<QWidget*>("startPage")->findChildren<QToolButton*>().at(0);
  recent.setFocus();
  QTest::keyClick(&recent, Qt::Key_Return);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window->Shown() != nullptr; }));
}

TEST_F(StudioWindowTest, AsksBeforeClosingForEveryMosaicThatIsNotExported) {
  QImage green(30, 30, QImage::Format_RGB32);
  green.fill(qRgb(90, 200, 90));
  green.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
  green.save(Path("green.png"));
  OpenPicture();
  ASSERT_TRUE(Create("key Return"));
  ASSERT_TRUE(window->OpenPicture(Path("green.png")));
  EXPECT_EQ(Canvas().pixel(Canvas().rect().center()),
            green.convertedToColorSpace(QColorSpace(QColorSpace::SRgb)).pixel(0, 0));
  ASSERT_TRUE(Create("key Return"));
  // The green one is discarded each time, the other one's export cancelled first.
  QString asked;
  for (const bool isExported : {false, true}) {
    for (const auto role : {QMessageBox::DestructiveRole, QMessageBox::AcceptRole}) {
      WhenOpen<QMessageBox>("notExported", [&, role](QMessageBox& box) {
        asked += box.text().section(' ', 3, 3) + ' ';
        EXPECT_LT(box.escapeButton()->x(), box.defaultButton()->x()) << "as in Create Tesserae";
        for (QAbstractButton* button : box.buttons()) {
          if (box.buttonRole(button) == role) return button->click();
        }
      });
    }
    WhenOpen<QDialog>("export", [isExported](QDialog& dialog) {
      isExported ? dialog.accept() : dialog.reject();
    });
    EXPECT_EQ(window->close(), isExported);
  }
  window->CloseModule();
  window.reset();
  EXPECT_EQ(asked.toStdString(), "green.png in.png green.png in.png ");
  EXPECT_EQ(Load("in mosaic.svg").count("<rect "), 6700);
}

TEST_F(StudioWindowTest, ALongBuildEndsByEscapeWithItsWindowAndWithTheProgram) {
  constexpr const char* kHuge =
      "enter HorizontalCountTxt 8640\nenter VerticalCountTxt 8640\nkey Return";
  enum class End { kEscape, kWindow, kWindowAtOnce, kProgram };
  for (const End end : {End::kEscape, End::kWindow, End::kWindowAtOnce, End::kProgram}) {
    OpenPicture();
    bool wasSeen = false;
    QTimer poll;
    poll.callOnTimeout([&] {
      const auto* const dialog = window->findChild<QDialog*>("progress");
      if (!dialog) return;
      wasSeen = !dialog->isVisible();
      EXPECT_TRUE(window->isEnabled() && !window->close());
      poll.stop();
    });
    if (end == End::kWindowAtOnce) poll.start(1);
    WhenOpen<QDialog>("progress", [&](QDialog& dialog) {
      wasSeen = true;
      auto& cancel = *dialog.findChild<QPushButton*>();
      EXPECT_TRUE(cancel.isVisible() && cancel.isEnabled());
      EXPECT_FALSE(window->isEnabled());
      if (end == End::kProgram) return QApplication::exit();
      if (end == End::kEscape) QTest::keyClick(&dialog, Qt::Key_Escape);
      EXPECT_FALSE(end == End::kWindow && window->close()) << "not before the work has stopped";
      dialog.close();
      EXPECT_TRUE(dialog.isVisible() && !cancel.isEnabled()) << "until the work has stopped";
      EXPECT_EQ(dialog.findChild<QLabel*>()->text(), "Cancelling…");
    });
    if (end == End::kEscape) {
      CreateTwice(kHuge, [](const QWidget& dialog) {
        EXPECT_EQ(Message(dialog), "The mosaic was cancelled.");
      });
    } else {
      Play(kHuge);
      QTimer::singleShot(0, &*window, [&] { Action("createTesserae").trigger(); });
      QApplication::exec();  // ends with the last window
      EXPECT_EQ(window->isVisible(), end == End::kProgram);
    }
    EXPECT_TRUE(wasSeen);
    EXPECT_TRUE(window->isEnabled());
    EXPECT_FALSE(window->Shown()->mosaic);
    EXPECT_FALSE(QFile::exists(Path("state")));
    Close();
  }
}

TEST_F(StudioWindowTest, APictureThatTakesLongCanBeLeft) {
  const QByteArray page = "<rect width='9000' height='9000' fill-opacity='.5'/>";
  Save("slow.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9000' height='9000'>" +
                       page.repeated(500) + "</svg>");
  Save("quick.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='90' height='60'/>");
  OpenPicture();
  const ArtworkPtr shown = window->Shown();
  QElapsedTimer clock;
  WhenOpen<QDialog>("progress", [&](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "in.png — Tesserae Studio");
    EXPECT_EQ(dialog.findChild<QLabel*>()->text(), "Opening slow.svg…");
    clock.start();
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_FALSE(window->OpenPicture(Path("slow.svg")));
  EXPECT_TRUE(clock.isValid() && clock.elapsed() < 1000) << clock.elapsed();
  EXPECT_EQ(window->statusBar()->currentMessage(), "Cancelled. Nothing has changed.");
  EXPECT_EQ(window->Shown(), shown);
  qputenv("QT_QPA_PLATFORM", "none");  // the drawing needs no display
  EXPECT_TRUE(window->OpenPicture(Path("quick.svg")));
  qputenv("QT_QPA_PLATFORM", "offscreen");
}

TEST_F(StudioWindowTest, AVeryLargePictureIsReadFromItsFileAgain) {
  OpenPicture();
  QImage large(12000, 10000, QImage::Format_Mono);
  large.setDotsPerMeterX(10000);
  large.setDotsPerMeterY(10000);
  large.fill(1);
  ASSERT_TRUE(large.save(Path("large.png"), nullptr, 0));
  ASSERT_TRUE(window->OpenPicture(Path("large.png")));
  EXPECT_TRUE(window->statusBar()->currentMessage().contains("is shown reduced"));
  EXPECT_EQ(window->Shown()->picture.Size(), large.size());
  EXPECT_EQ(window->Shown()->picture.Pixels().size(), QSize(4096, 3072));
  ASSERT_TRUE(Create("enter HorizontalCountTxt 9\nenter VerticalCountTxt 7\nkey Return"));
  EXPECT_EQ(window->Shown()->mosaic->tiles.size(), QSize(9, 7));
  Export("a.svg");

  ASSERT_TRUE(large.scaled(12000, 9000).save(Path("large.png"), nullptr, 0));
  CreateTwice("key Return", [](const QWidget& dialog) {
    EXPECT_TRUE(Message(dialog).contains("large.png has changed since it was placed"))
        << Message(dialog).toStdString();
  });
}

TEST_F(StudioWindowTest, AnExportThatFailsLeavesTheEarlierFileAsItWas) {
  OpenPicture();
  ASSERT_TRUE(Create("enter HorizontalCountTxt 9\nkey Return"));
  Export("a.svg");
  const QByteArray earlier = Load("a.svg");
  ASSERT_TRUE(
      Create("enter HorizontalCountTxt 1\nenter VerticalCountTxt 8640\n"
             "enter NewWidthTxt 3000\nkey Return"));
  QString text;
  const auto expectRefusal = [&](const char* action, const char* reason) {
    WhenOpen<QMessageBox>("error", [&](QMessageBox& box) {
      text = "|" + box.text() + "|" + box.informativeText();
      WhenOpen<QDialog>("export", [](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), "b.png") << "what failed";
        dialog.reject();
      });
      box.close();
    });
    Action(action).trigger();
    EXPECT_TRUE(text.contains("|The mosaic cannot be exported.|")) << text.toStdString();
    EXPECT_TRUE(text.contains(reason)) << text.toStdString();
    EXPECT_TRUE(window->isWindowModified());
  };
  Type("b.png");
  expectRefusal("export", "648,000 by 8,640 pixels, which is too many; SVG and PDF can hold");

  auto* const former = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit low{10000, limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &low);
  expectRefusal("exportAgain", "a.svg: ");
  setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, former);
  EXPECT_EQ(Load("a.svg"), earlier);
  Action("exportAgain").trigger();
  EXPECT_EQ(Load("a.svg").count("<rect "), 8640);
}

TEST_F(StudioWindowTest, FileDialogsKnowTheKindsOfFiles) {
  OpenPicture();
  ASSERT_TRUE(Create("key Return"));
  WhenOpen<QFileDialog>("QFileDialog", [&](QFileDialog& dialog) {
    EXPECT_TRUE(dialog.nameFilters().value(0).contains("*.svg"));
    EXPECT_EQ(dialog.nameFilters().value(1), "All files (*)");
    EXPECT_EQ(dialog.directory().path(), folder.path()) << "where the last picture was";
    dialog.close();
  });
  Action("open").trigger();
  // What follows a dot is not always an ending, and a picture's ending is not kept.
  const std::tuple<const char*, const char*, const char*> kTyped[] = {
      {"10.15", "10.15.svg", "The file will be named 10.15.svg."},
      {"10.15.svg", "10.15.svg", ""},
      {"it.jpg", "it.svg", "The file will be named it.svg."},
      {"a.pdf", "a.pdf", ""}};
  for (const auto& [typed, path, notice] : kTyped) {
    WhenOpen<QDialog>("export", [typed = typed, notice = notice](QDialog& dialog) {
      EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), "at 10.15 mosaic.svg");
      dialog.findChild<QLineEdit*>()->setText(typed);
      EXPECT_EQ(dialog.findChild<QLabel*>("exportNotice")->text(), notice);
      dialog.accept();
    });
    EXPECT_EQ(AskForExport(*window, Path("at 10.15 mosaic.svg")), Path(path));
  }
  Save("taken.pdf", "earlier");
  WhenOpen<QFileDialog>("export", [&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.nameFilters().size(), 3);
    auto& name = *dialog.findChild<QLineEdit*>();
    dialog.selectNameFilter(dialog.nameFilters()[1]);
    emit dialog.filterSelected(dialog.nameFilters()[1]);
    EXPECT_EQ(name.text(), "in mosaic.pdf") << "the ending follows the kind";
    name.setText("taken");
    EXPECT_EQ(dialog.findChild<QLabel*>("exportNotice")->text(),
              "taken.pdf exists and will be replaced.");
    WhenOpen<QMessageBox>("",
                          [](QMessageBox& question) { question.button(QMessageBox::No)->click(); });
    static_cast<QDialog&>(dialog).accept();
    EXPECT_TRUE(dialog.isVisible()) << "it may not be replaced";
    // Qt deselects a file in the list only while the field has the focus, as it has for a user.
    dialog.activateWindow();
    name.setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return name.hasFocus(); }));
    name.setText("free");
    static_cast<QDialog&>(dialog).accept();
  });
  Action("export").trigger();
  EXPECT_EQ(Load("taken.pdf"), "earlier");
  EXPECT_TRUE(Load("free.pdf").startsWith("%PDF"));
}

TEST_F(StudioWindowTest, TheClipboardTakesWhatOthersCanTake) {
  OpenPicture();
  const auto clipboard = [] { return QApplication::clipboard()->mimeData(); };
  Action("copy").trigger();
  EXPECT_EQ(qvariant_cast<QImage>(clipboard()->imageData()), window->Shown()->picture.Pixels());
  ASSERT_TRUE(Create(kTwelveByEight));
  Action("copy").trigger();
  EXPECT_EQ(clipboard()->data("image/svg+xml").count("<rect "), 96);
  Export("first.svg");
  Action("paste").trigger();
  EXPECT_EQ(window->Shown()->path, "Pasted picture 1");
  EXPECT_NEAR(window->Shown()->picture.Pixels().width(), 1608, 8) << "sharp tiles";
  ASSERT_TRUE(Create("enter HorizontalCountTxt 500\nenter VerticalCountTxt 501\nkey Return"));
  Action("copy").trigger();
  EXPECT_FALSE(clipboard()->hasFormat("image/svg+xml")) << "more than 250 000 tiles";
  EXPECT_GE(qvariant_cast<QImage>(clipboard()->imageData()).width(), 4 * 500);

  auto* const files = new QMimeData;
  files->setUrls({QUrl("https://localhost/b.png"), QUrl::fromLocalFile(Path("in.png"))});
  QApplication::clipboard()->setMimeData(files);
  Action("paste").trigger();
  EXPECT_FALSE(window->Shown()->mosaic);
  EXPECT_EQ(window->Shown()->path, Path("in.png"));
  QApplication::clipboard()->setText("in.png");
  Action("paste").trigger();
  EXPECT_EQ(window->statusBar()->currentMessage(), "There is no picture on the clipboard.");
  Action("undo").trigger();
  Export("a.svg");
}

TEST_F(StudioWindowTest, ZoomsAtThePointerAndMovesUnderTheHand) {
  OpenPicture();
  auto& canvas = *window->findChild<::Canvas*>();
  const auto press = [&](const char* action, double zoom) {
    for (int i = 0; i < 50; ++i) Action(action).trigger();
    EXPECT_EQ(canvas.Zoom(), zoom) << action;
  };
  press("zoomIn", 64);
  press("zoomOut", 0.01);
  press("actualSize", 1);
  Action("fit").trigger();
  const QRect page = canvas.mapFromScene(QRectF(-30, -20, 60, 40)).boundingRect();
  EXPECT_TRUE(canvas.viewport()->rect().contains(page));
  const QPoint pointer = page.center() + QPoint(60, 40);
  const QPointF under = canvas.mapToScene(pointer);
  const double fitted = canvas.Zoom();
  const auto turnWheel = [&](int steps, Qt::KeyboardModifier modifier = Qt::ControlModifier) {
    QWheelEvent wheel(pointer, canvas.viewport()->mapToGlobal(pointer), {}, {0, 120 * steps},
                      Qt::NoButton, modifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(canvas.viewport(), &wheel);
  };
  for (int i = 0; i < 4; ++i) turnWheel(1);
  EXPECT_GT(canvas.Zoom(), 2 * fitted);
  EXPECT_LT(QLineF(canvas.mapToScene(pointer), under).length() * canvas.Zoom(), 5);

  const QPointF held = canvas.mapToScene(pointer);
  const QPoint target = pointer - QPoint(70, 50);
  const auto expectHand = [&](Qt::CursorShape shape) {
    EXPECT_EQ(canvas.viewport()->cursor().shape(), shape);
  };
  QTest::keyPress(&canvas, Qt::Key_Space);
  expectHand(Qt::OpenHandCursor);
  QTest::mousePress(canvas.viewport(), Qt::LeftButton, {}, pointer);
  expectHand(Qt::ClosedHandCursor);
  QTest::mouseMove(canvas.viewport(), target);
  QTest::mouseRelease(canvas.viewport(), Qt::LeftButton, {}, target);
  expectHand(Qt::OpenHandCursor);
  QTest::keyRelease(&canvas, Qt::Key_Space);
  expectHand(Qt::ArrowCursor);
  EXPECT_LT(QLineF(canvas.mapToScene(target), held).length() * canvas.Zoom(), 2);
  // The middle button holds it too, until the last button is let go.
  QTest::mousePress(canvas.viewport(), Qt::MiddleButton, {}, target);
  QTest::mousePress(canvas.viewport(), Qt::RightButton, {}, target);
  QTest::mouseRelease(canvas.viewport(), Qt::RightButton, {}, target);
  QTest::mouseMove(canvas.viewport(), pointer);
  QTest::mouseRelease(canvas.viewport(), Qt::MiddleButton, {}, pointer);
  QTest::mouseMove(canvas.viewport(), target);
  EXPECT_LT(QLineF(canvas.mapToScene(pointer), held).length() * canvas.Zoom(), 4);
  const double zoom = canvas.Zoom();
  const QPointF before = canvas.mapToScene(pointer);
  turnWheel(-1, Qt::NoModifier);
  EXPECT_GT(canvas.mapToScene(pointer).y(), before.y()) << "the wheel alone moves";
  EXPECT_EQ(canvas.Zoom(), zoom);
  turnWheel(99);
  EXPECT_EQ(canvas.Zoom(), 64);
  EXPECT_EQ(Action("zoom").iconText(), "6,400 %");
}

TEST_F(StudioWindowTest, TheStartPageCanBeReadAndUsedWithKeys) {
  Open();
  for (const auto theme : {qtui::Theme::kSystem, qtui::Theme::kLight, qtui::Theme::kDark}) {
    qtui::ApplyTheme(theme);
    QTest::qWait(20);
    const QLabel& hint = *window->findChild<QLabel*>("whatHint");
    const QImage picture = window->grab({hint.mapTo(&*window, QPoint()), hint.size()}).toImage();
    EXPECT_GE(ContrastIn(picture), 4.5) << qtui::NameOf(theme);
    if (theme == qtui::Theme::kSystem) continue;  // the desktop's own colours
    QMenu& menu = *window->menuBar()->actions()[1]->menu();
    menu.ensurePolished();
    const QImage entries = menu.grab().toImage();
    for (QAction* entry : menu.actions()) {
      const bool isLine = entry->isSeparator();
      const int margin = isLine ? -1 : 2;
      const QRect part = menu.actionGeometry(entry).adjusted(4, margin, -4, -margin);
      EXPECT_GE(ContrastIn(entries.copy(part)), isLine ? 1.5 : 3) << qtui::NameOf(theme);
    }
  }
  qtui::ApplyTheme(qtui::Theme::kLight);
  bool isOpen = false;
  WhenOpen<QFileDialog>("QFileDialog", [&](QFileDialog& dialog) {
    isOpen = true;
    dialog.reject();
  });
  QTest::keyClick(&*window, Qt::Key_O, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return isOpen; })) << "no menu has the same key";

  QImage clear(20, 20, QImage::Format_ARGB32);
  clear.fill(Qt::transparent);
  ASSERT_TRUE(clear.save(Path("clear.png")) && window->OpenPicture(Path("clear.png")));
  const QImage shown = Canvas().copy(QRect({}, QSize(40, 40)).translated(Canvas().rect().center()));
  EXPECT_GT(ContrastIn(shown), 1.2) << "a checkerboard";
  EXPECT_EQ(shown.pixel(0, 0), shown.pixel(16, 0));
}

TEST_F(StudioWindowTest, NothingIsClippedInAnyLanguageOrTheme) {
  for (const auto& [language, theme] :
       {std::pair("en", qtui::Theme::kLight), std::pair("de", qtui::Theme::kDark),
        std::pair("ja", qtui::Theme::kLight)}) {
    Speak(language);
    OpenPicture();
    EXPECT_TRUE(*language == 'e' || window->size() == QSize(900, 600)) << "as it was closed";
    // Like the system, light, dark: the choice is kept.
    const QList<QAction*> themes = window->findChild<QActionGroup*>("themes")->actions();
    EXPECT_TRUE(themes[int(settings::ChosenTheme())]->isChecked());
    themes[int(theme)]->trigger();
    EXPECT_EQ(settings::ChosenTheme(), theme);
    EXPECT_TRUE(themes[int(theme)]->isChecked());
    window->resize(900, 600);
    QTest::qWait(20);
    QWidgetList shown{window->findChild<QLabel*>("summary")};
    for (QToolButton* button : window->findChild<QToolBar*>()->findChildren<QToolButton*>()) {
      const bool isForHidden = button->objectName() == "qt_toolbar_ext_button";
      EXPECT_NE(button->isVisible(), isForHidden) << language;
      if (!isForHidden) shown += button;
    }
    for (const QWidget* widget : shown) EXPECT_GE(widget->width(), widget->sizeHint().width());

    // The tiles' grey is the theme's: a dark board under dark bars.
    const QImage picture = window->grab().toImage();
    EXPECT_EQ(picture.pixelColor(8, picture.height() / 2).lightness() < 128,
              theme == qtui::Theme::kDark);
    Close();
  }
  qtui::ApplyTheme(qtui::Theme::kLight);
}

/// What is painted of a mosaic whose first tile is red, over white.
QImage Painted(QSize tiles, QSizeF tile, QSizeF spacing, double scale, double ratio) {
  Mosaic mosaic;
  mosaic.tiles = QImage(tiles, QImage::Format_ARGB32);
  mosaic.tiles.fill(Qt::blue);
  mosaic.tiles.setPixel(0, 0, qRgb(255, 0, 0));
  const QSizeF pitch = tile + spacing;
  const QSizeF size =
      QSizeF(tiles.width() * pitch.width(), tiles.height() * pitch.height()) - spacing;
  mosaic.geometry = {tiles.width(), tiles.height(), size, spacing, tile};
  QImage image((size * scale * ratio).toSize() + QSize(20, 20), QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.translate(10 / ratio, 10 / ratio);
  painter.scale(scale, scale);
  TilePainter(std::make_shared<const Mosaic>(std::move(mosaic))).Paint(painter, {{0, 0}, size});
  return image;
}

TEST(Settings, RememberTheLastPicturesWithoutLookingForThem) {
  const QTemporaryDir folder;
  qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
  for (const char* name : {"1", "2", "3", "4", "5", "6", "7", "8", "9", "5"})
    settings::AddRecentPicture(QString("/away/") + name);
  EXPECT_EQ(settings::RecentPictures().join(' ').remove("/away/"), "5 9 8 7 6 4 3 2");
  settings::ClearRecentPictures();
  EXPECT_EQ(settings::RecentPictures(), QStringList());
}

TEST(TilePainter, TilesLieWhereTheyBelongAtAnyScale) {
  for (const double ratio : {1.0, 2.0}) {
    const QImage large = Painted({3, 2}, {6, 4}, {2, 1}, 5, ratio);
    const std::pair<QPointF, Qt::GlobalColor> kPlaces[] = {
        {{0.1, 0.1}, Qt::red},    {{5.9, 3.9}, Qt::red},  {{6.3, 1}, Qt::white},
        {{1, 4.5}, Qt::white},    {{8.1, 0.1}, Qt::blue}, {{21.9, 8.9}, Qt::blue},
        {{-0.2, -0.2}, Qt::white}};
    for (const auto& [place, color] : kPlaces) {
      const QPointF pixel = QPointF(10, 10) + place * 5 * ratio;
      EXPECT_EQ(large.pixelColor(int(pixel.x()), int(pixel.y())), color) << place.x();
    }
  }
  // A gap of half a pixel counts half.
  const QImage halves = Painted({4, 4}, {7, 7}, {1, 1}, 0.5, 1);
  EXPECT_EQ(halves.pixel(10 + 5, 10 + 5) & 0xFFFFFF, 0x0000FFU);
  EXPECT_NEAR(qRed(halves.pixel(10 + 7, 10 + 5)), 128, 3);
  // Tiles that touch leave no seam, wherever their border falls.
  EXPECT_EQ(Painted({4, 4}, {3, 3}, {0, 0}, 0.5, 1).pixelColor(14, 14), Qt::blue);
  // Gaps count as well among tiles that are too small to be told apart: three quarters here.
  const QImage small = Painted({2000, 2000}, {0.5, 0.5}, {0.5, 0.5}, 0.25, 1);
  EXPECT_NEAR(qRed(small.pixel(260, 260)), 191, 4);
  EXPECT_EQ(qBlue(small.pixel(260, 260)), 255);
  // In one direction only, the gaps of the other one stay.
  const QImage narrow = Painted({2000, 10}, {0.3, 42}, {0, 20}, 1, 1);
  EXPECT_EQ(narrow.pixelColor(310, 10 + 20), Qt::blue);
  EXPECT_EQ(narrow.pixelColor(310, 10 + 52), Qt::white);

  // Nothing is painted of tiles that found no memory.
  const Mosaic without{{2, 2, {20, 20}, {0, 0}, {10, 10}}, {}, {}};
  QImage page(20, 20, QImage::Format_RGB32);
  QPainter painter(&page);
  TilePainter(std::make_shared<const Mosaic>(without)).Paint(painter, {0, 0, 20, 20});
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QCoreApplication::setApplicationName("tesserae-studio");
  // Qt keeps what its file dialogs note where settings were at first, in no test's folder.
  const QTemporaryDir settings;
  qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
  const QSettings ofQt(QSettings::UserScope, "QtProject");
  nrvcore::config::Localizer::Get().SetCatalogues(standin::ResourceFolders::OfProgram().host /
                                                  "translations");
  qtui::ApplyTheme(qtui::Theme::kLight);
  qInstallMessageHandler(NoteWarning);
  return RUN_ALL_TESTS();
}
