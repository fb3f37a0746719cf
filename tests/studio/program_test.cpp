#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <csignal>

#include "tests/studio/studio_folder.h"

namespace {

struct Result {
  int status;  // -1 after a crash
  QByteArray output;
  QByteArray errors;
};

Result Ended(QProcess& process) {
  EXPECT_TRUE(process.waitForFinished(60000)) << process.arguments().join(' ').toStdString();
  const bool isExit = process.exitStatus() == QProcess::NormalExit;
  return {isExit ? process.exitCode() : -1, process.readAllStandardOutput(),
          process.readAllStandardError()};
}

const QByteArray kSvgStart = "<svg xmlns='http://www.w3.org/2000/svg' width='12' height='8'>";

/// The real program in a folder of its own with gesture files.
class Program : public StudioFolder {
 protected:
  Program() {
    Save("ok", "key Return\n");
    Save("cancel", "enter HorizontalCountTxt 3\nkey Escape\n");
  }

  void Start(QProcess& process, const QString& arguments,
             const QString& program = TESSERAE_STUDIO) const {
    process.setWorkingDirectory(folder.path());
    process.start(program, arguments.split(' ', Qt::SkipEmptyParts));
  }

  Result Run(const QString& arguments, const QString& program = TESSERAE_STUDIO) const {
    QProcess process;
    Start(process, arguments, program);
    return Ended(process);
  }

  QJsonObject Record() const { return QJsonDocument::fromJson(Load("record")).object(); }

  QStringList Files() const {
    return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
  }

  /// The run must end with status 2 and one line with the reason, and leave all files as they were.
  void ExpectRefusal(const char* arguments, const char* reason,
                     const QString& program = TESSERAE_STUDIO) const {
    const QStringList before = Files();
    Result result = Run(arguments, program);
#ifdef __SANITIZE_ADDRESS__  // libraries write to the error output too
    result.errors.remove(0, result.errors.indexOf("tesserae-studio: "));
#endif
    SCOPED_TRACE(arguments + (": " + result.errors.toStdString()));
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.errors.startsWith("tesserae-studio: "));
    EXPECT_TRUE(result.errors.contains(reason));
    EXPECT_EQ(result.errors.indexOf('\n'), result.errors.size() - 1) << "one line";
    EXPECT_EQ(Files(), before);
  }
};

TEST_F(Program, BuildsWhatTheDialogAskedFor) {
  Save("gestures",
       "enter HorizontalCountTxt 12\nclick HorizontalRadio\nclick MosaicUseRatioButton\n"
       "enter TileSpaceHorzTxt 1\nclick GrayRadio\nkey Return\n");
  const Result result =
      Run("in.png --gestures gestures --export a.svg --export a.png "
          "--export a.pdf --record record --state state");
  EXPECT_EQ(result.status, 0) << result.errors.toStdString();
  EXPECT_EQ(result.errors, "");
  EXPECT_TRUE(result.output.contains("96 tiles")) << result.output.toStdString();
  const QString svg = Load("a.svg");
  EXPECT_EQ(svg.count("<rect "), 96);
  EXPECT_EQ(svg.count(QRegularExpression("\"#(..)\\1\\1\"")), 96) << "grey";
  EXPECT_FALSE(svg.contains("<image")) << "the raster is deleted";
  EXPECT_TRUE(Load("a.pdf").startsWith("%PDF"));
  EXPECT_GE(QImage(Path("a.png")).width(), 1600);
  EXPECT_EQ(Record()["tilesDown"].toInt(), 8);
  EXPECT_EQ(Record()["tileSpacingHorizontal"].toInt(), 1);
  EXPECT_EQ(Record()["newWidth"].toDouble(), 60);

  Save("keep",
       "enter TileSpaceHorzTxt 1\nenter NewHeightTxt 1.000\nclick DeleteRasterChk\nkey Return\n");
  const QString keep =
      "in.png --size-unknown --gestures keep --export b.svg --record record --language de";
  EXPECT_EQ(Run(keep + " --state state --screenshot c.png --screenshot-window d.png").status, 0);
  for (const char* shown : {"c.png", "d.png"}) EXPECT_GT(QImage(Path(shown)).width(), 60) << shown;
  EXPECT_TRUE(Load("b.svg").contains("<image"));
  EXPECT_EQ(Record()["sizeUnavailable"].toInt(), 1);
  EXPECT_EQ(Record()["newHeight"].toDouble(), 0.01) << "scripts have points in every language";
}

TEST_F(Program, RemembersChoicesFromRunToRun) {
  Save("first",
       "enter HorizontalCountTxt 30\nclick UsePercentChk\nclick DeleteRasterChk\nkey Return\n");
  for (const QString state : {"", " --state named"}) {
    EXPECT_EQ(Run("in.png --quiet --gestures first" + state).status, 0);
    const QByteArray kept = Load(state.isEmpty() ? "config/tesserae-studio/choices.json" : "named");
    EXPECT_TRUE(kept.contains("\"usePercent\": 1")) << kept.toStdString();
    EXPECT_EQ(Run("in.png --quiet --gestures cancel" + state).status, 1);
    const Result again = Run("in.png --quiet --gestures ok --record record" + state);
    EXPECT_EQ(again.output + again.errors, "");
    EXPECT_EQ(Record()["tilesAcross"].toInt(), 30);
    EXPECT_EQ(Record()["tilesDown"].toInt(), 20) << "square tiles";
    EXPECT_EQ(Record()["newWidth"].toDouble(), 1);
  }
  // Damage in the user's settings costs a warning, not the run.
  Save("config/tesserae-studio/choices.json", "{");
  const Result damaged = Run("in.png --gestures ok --record record");
  EXPECT_EQ(Record()["tilesDown"].toInt(), 67) << "square tiles, a hundred across";
  EXPECT_EQ(damaged.status, 0);
  EXPECT_EQ(damaged.errors.count('\n'), 1) << damaged.errors.toStdString();
  EXPECT_EQ(Load("config/tesserae-studio/choices.json"), "{");

  // So does a place that takes none.
  QFile::remove(Path("config/tesserae-studio/choices.json"));
  ASSERT_TRUE(QDir(Path("config/tesserae-studio")).mkdir("choices.json"));
  const Result unkept = Run("in.png --gestures ok --export kept.svg");
  EXPECT_EQ(unkept.status, 0);
  EXPECT_EQ(unkept.errors.count('\n'), 1);
  EXPECT_TRUE(unkept.errors.contains("cannot be read: it is not a regular file; the file is left"))
      << unkept.errors.toStdString();
  EXPECT_EQ(Load("kept.svg").count("<rect "), 6700);
  EXPECT_EQ(Run("in.png --quiet --gestures ok").errors, "");
}

TEST_F(Program, APresetDoesWhatItsGesturesDo) {
  Save("state", R"({"presets": {"Poster": {"HorizontalCountTxt": 9, "VerticalCountTxt": 4.9,
      "ColorRadio": 0, "GrayRadio": 1, "UsePercentChk": 1, "DeleteRasterChk": 0,
      "NewWidthTxt": 33.3, "NewHeightTxt": 20, "TileSpaceHorzTxt": 1.5},
      "Wide": {"UsePercentChk": 0, "NewWidthTxt": 9000}}})");
  Save("gestures",
       "click UsePercentChk\nclick GrayRadio\nclick DeleteRasterChk\nenter NewWidthTxt 33.3\n"
       "enter NewHeightTxt 20\nenter HorizontalCountTxt 9\nenter VerticalCountTxt 4.9\n"
       "enter TileSpaceHorzTxt 1.5\nkey Return\n");
  const QString outputs = "--quiet --export a.svg --export a.png --record record";
  ASSERT_EQ(Run("in.png --gestures gestures " + outputs).status, 0);
  const QByteArrayList expected{Load("a.svg"), Load("a.png"), Load("record")};
  for (const char* shown : {"", " --screenshot dialog.png"}) {
    const Result result = Run("in.png --state state --preset poster " + outputs + shown);
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
    EXPECT_EQ((QByteArrayList{Load("a.svg"), Load("a.png"), Load("record")}), expected) << shown;
  }
  // Alone, before gestures, and what does not fit.
  const QByteArray recent = "\"VerticalCountTxt\": 4.9";
  EXPECT_EQ(Run("in.png --state state --preset poster").status, 0);
  EXPECT_EQ(Load("state").count(recent), 2) << "the preset, and one of the last mosaics";
  Save("five", "enter VerticalCountTxt 5\nkey Return\n");
  EXPECT_EQ(Run("in.png --state state --preset Poster --gestures five --record record").status, 0);
  EXPECT_EQ(Record()["tilesDown"].toInt(), 5);
  EXPECT_EQ(Record()["tilesAcross"].toInt(), 9);
  EXPECT_TRUE(Run("in.png --state state --preset Wide").errors.contains("9000 is more than 8640"));
  const Result unsized = Run("in.png --state new --preset Poster --size-unknown");
  EXPECT_TRUE(unsized.errors.contains("there is no preset Poster; none is saved yet\n"));
  EXPECT_EQ(unsized.status, 2);
  EXPECT_TRUE(Run("in.png --state state --preset X").errors.contains("there are: Poster, Wide\n"));
  EXPECT_TRUE(Run("--preset Poster").errors.contains("no picture is given"));
}

TEST_F(Program, DrawsADrawingThatStandsAlone) {
  const QByteArray inside = Load("in.png").toBase64();
  Save("in.svg",
       kSvgStart + "<image href='data:image/png;base64," + inside +
           "' width='6' height='8'/><rect x='6' width='6' height='8' fill='#f00'/></svg>");
  Save("gestures", "enter HorizontalCountTxt 2\nenter VerticalCountTxt 1\nkey Return\n");
  EXPECT_EQ(Run("in.svg --gestures gestures --export a.svg --record -platform").status, 0);
  const QByteArray mosaic = Load("a.svg");
  EXPECT_TRUE(mosaic.contains("x=\"6\" y=\"0\" width=\"6\" height=\"8\" fill=\"#ff0000\""));
  EXPECT_NE(Load("-platform"), "") << "no option of Qt's, a file's name";

  ASSERT_EQ(QProcess::execute("gzip", {Path("in.svg")}), 0);
  EXPECT_EQ(Run("in.svg.gz --gestures gestures --export packed.svg").status, 0);
  EXPECT_EQ(Load("packed.svg"), mosaic);
  Save("short.svgz", Load("in.svg.gz").chopped(20));
  Save("flat.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='0'/>");
  for (const char* name : {"short.svgz", "flat.svg"}) {
    const Result result = Run(QString("%1 --gestures gestures --export b.svg").arg(name));
    EXPECT_EQ(result.status, 2) << name;
    EXPECT_TRUE(result.errors.contains(name)) << result.errors.toStdString();
  }
}

TEST_F(Program, OpensNothingThatADrawingRefersTo) {
  QImage red(8, 8, QImage::Format_RGB32);
  red.fill(Qt::red);
  ASSERT_TRUE(red.save(Path("red.png")));
  Save("red.svg",
       "<svg xmlns='http://www.w3.org/2000/svg' width='8' height='8'>"
       "<rect id='a' width='8' height='8' fill='#f00'/></svg>");
  Save("red.css", "rect { fill: #f00 }");
  ASSERT_EQ(mkfifo(qPrintable(Path("pipe")), 0600), 0);
  Save("gestures", "enter HorizontalCountTxt 1\nenter VerticalCountTxt 1\nkey Return\n");
  const QByteArray folderPath = folder.path().toUtf8();
  const QByteArray image = kSvgStart + "<image width='12' height='8' href='%1'/></svg>";
  const QByteArray within =
      "data:image/svg+xml;base64," +
      QByteArray(image).replace("%1", "file://" + folderPath + "/red.png").toBase64();
  QByteArrayList drawings;
  const QByteArrayList references{"red.png",   "./red.png", folderPath + "/red.png",
                                  "#red.png",  "pipe",      "file://" + folderPath + "/red.png",
                                  "/dev/zero", within};
  for (const QByteArray& reference : references) {
    drawings << QByteArray(image).replace("%1", reference)
             << QByteArray(image).replace("href", "a:href").replace("%1", reference);
  }
  drawings << "<?xml-stylesheet type='text/css' href='red.css'?>" + kSvgStart +
                  "<style>@import 'red.css';</style><rect fill='none' width='9' height='9'/></svg>"
           << kSvgStart + "<use href='red.svg#a'/></svg>"
           << "<!DOCTYPE svg [<!ENTITY e SYSTEM 'red.svg'>]>" + kSvgStart + "&e;</svg>"
           << kSvgStart + "<include xmlns='http://www.w3.org/2001/XInclude' href='red.svg'/></svg>";
  for (const QByteArray& drawing : drawings) {
    QFile::remove(Path("a.svg"));
    Save("in.svg", drawing);
    const Result result = Run("in.svg --gestures gestures --export a.svg");
    EXPECT_TRUE(result.status == 0 || result.status == 2) << drawing.toStdString();
    EXPECT_FALSE(Load("a.svg").contains("#ff0000")) << drawing.toStdString();
  }
}

TEST_F(Program, MakesMosaicsOfImagesInADrawing) {
  const QByteArray first = "<image id='a' href='in.png' transform='scale(2)'/>";
  const QByteArray second = "<image id='b' width='24' height='16' href='data:image/png;base64," +
                            Load("in.png").toBase64() + "'/>";
  const QByteArray rect = "<rect id='r' width='9' height='9'/>";
  Save("in.svg", kSvgStart + first + rect + second + "</svg>");
  Save("three", "enter HorizontalCountTxt 3\nenter VerticalCountTxt 2\nkey Return\n");
  const Result result =
      Run("in.svg --image b --image a --gestures three --export a.svg --record record --state s");
  EXPECT_EQ(result.status, 0) << result.errors.toStdString();
  const QByteArray drawn = Load("a.svg");
  EXPECT_EQ(drawn.count("<rect x="), 12);
  EXPECT_TRUE(drawn.startsWith(kSvgStart + "<g id=\"a\" transform=\"scale(2)\""));
  EXPECT_TRUE(drawn.contains("</g>" + rect + "<g id=\"b\"")) << "the images are gone";
  EXPECT_TRUE(drawn.endsWith("</g></svg>"));
  EXPECT_TRUE(drawn.contains("<rect x=\"16\" y=\"8\" width=\"8\" height=\"8\" fill"));
  const QJsonArray records = QJsonDocument::fromJson(Load("record")).array();
  EXPECT_EQ(records.size(), 2);
  EXPECT_EQ(records[0]["boundsRight"].toInt(), 18) << "the first that was named";
  EXPECT_EQ(records[1]["boundsRight"].toInt(), 90);
  Save("keep", "enter NewWidthTxt 3\nclick DeleteRasterChk\nkey Return\n");
  EXPECT_EQ(Run("in.svg --image a --gestures keep --export b.svg --state s").status, 0);
  EXPECT_TRUE(Load("b.svg").startsWith(kSvgStart + first + "<g id=\"a-mosaic\""));
  EXPECT_TRUE(Load("b.svg").contains("<rect x=\"0.66667\"")) << "3 pt are 2 units; a third";

  // As Inkscape calls it.
  const Result called = Run("--id=r --id=b --inkscape=true --odd --gestures=three in.svg");
  QByteArray expected = drawn;
  expected.replace(kSvgStart.size(), drawn.indexOf(rect) - kSvgStart.size(), first);
  EXPECT_EQ(called.output, expected) << "a stays, as it is not selected";
  EXPECT_EQ(called.status, 0);
  EXPECT_EQ(called.errors, "");
  const Result cancelled = Run("--id=a --inkscape=true --gestures=cancel in.svg");
  EXPECT_EQ(cancelled.output + cancelled.errors, "");
  EXPECT_EQ(cancelled.status, 0);
  const std::pair<const char*, const char*> kRefusals[] = {
      {"", "Select a picture first.\n"}, {"--id=r", "The selection has no picture;"}};
  for (const auto& [selection, message] : kRefusals) {
    const Result refused = Run(QString("%1 --inkscape=true in.svg").arg(selection));
    EXPECT_EQ(refused.output, "");
    EXPECT_TRUE(refused.errors.startsWith(message)) << refused.errors.toStdString();
  }
}

TEST_F(Program, HoldsNoPictureThatPassesThrough) {
  QImage large(20000, 10000, QImage::Format_Mono);  // 800 MB in colour
  large.fill(1);
  ASSERT_TRUE(large.save(Path("large.png"), nullptr, 0));
  QProcess process;
#ifndef __SANITIZE_ADDRESS__
  process.setChildProcessModifier([] {
    const rlimit limit{600 << 20, 600 << 20};
    setrlimit(RLIMIT_AS, &limit);
    std::signal(SIGCHLD, SIG_IGN);  // as some parents leave it
  });
#endif
  Start(process, "large.png --gestures ok --export a.svg");
  EXPECT_EQ(Ended(process).status, 0);
  EXPECT_EQ(Load("a.svg").count("fill=\"#ffffff\""), 5000);
}

TEST_F(Program, TakesScreenshotsOfWhatWouldOpen) {
  EXPECT_EQ(Run("--screenshot-window empty.png").output, "Wrote empty.png\n");
  EXPECT_EQ(QImage(Path("empty.png")).size(), QSize(1080, 760));
  const Result both = Run("in.png --screenshot dialog.png --screenshot-window picture.png");
  EXPECT_EQ(both.output, "Wrote dialog.png\nWrote picture.png\n");
  EXPECT_EQ(both.status, 0) << "though nobody confirms the dialog";
  EXPECT_EQ(Run("in.png --quiet --gestures ok --screenshot-window mosaic.png").output, "");
  const QStringList shown{"empty.png", "dialog.png", "picture.png", "mosaic.png"};
  for (const QString& one : shown) {
    for (const QString& other : shown)
      EXPECT_EQ(QImage(Path(one)) == QImage(Path(other)), one == other) << one.toStdString();
  }
  const QImage mosaic(Path("mosaic.png"));
  EXPECT_NE(mosaic.pixel(mosaic.rect().center()), 0xFFFFFFFF) << "tiles on the page";
  EXPECT_TRUE(Run("--screenshot dialog.png").errors.contains("no picture is given"));
}

TEST_F(Program, LeavesEverythingAsItWasAfterCancel) {
  Save("a.svg", "old");
  const QStringList before = Files();
  EXPECT_EQ(
      Run("in.png --gestures cancel --export a.svg --export b.png --record r --state s").status, 1);
  EXPECT_EQ(Files(), before);
  EXPECT_EQ(Load("a.svg"), "old");
  EXPECT_FALSE(QDir(Path("config")).exists());
}

TEST_F(Program, MirrorsALanguageItHasNoWordsOf) {
  const Result result = Run("in.png --gestures ok --language ar --screenshot a.png");
  EXPECT_EQ(result.errors.count("no translation for \"ar\""), 1) << result.errors.toStdString();
  const QImage dialog(Path("a.png"));
  ASSERT_FALSE(dialog.isNull());
  EXPECT_GT(dialog.pixelColor(60, dialog.height() - 30).hslSaturation(), 100) << "OK on the left";
}

TEST_F(Program, TellsOfItself) {
  EXPECT_TRUE(Run("--help").output.contains("--size-unknown"));
  for (const char* language : {"en", "de"}) {
    const QString help = Run(QString("--help --language ") + language).output;
    for (const QString& line : help.split('\n')) EXPECT_LE(line.size(), 80) << line.toStdString();
  }
}

TEST_F(Program, SaysInOneLineWhatIsWrong) {
  Save("text.png", "no picture");
  Save("short.png", Load("in.png").chopped(2000));
  Save("damaged.png", Load("in.png").replace(60, 4, "????"));
  Save("unknown", "enter NoSuchTxt 3\nkey Return\n");
  Save("nonsense", "dance\n");
  Save("notanumber", "enter HorizontalCountTxt many\nkey Return\n");
  Save("linked.svg", kSvgStart + "<image href='pipe' width='9' height='9'/></svg>");
  Save("flat", "enter NewHeightTxt 0\nkey Return\n");
  Save("badstate", "{}");
  Save("largestate", QByteArray(1 << 24, ' ') + "{}");
  QDir(folder.path()).mkdir("folder");
  ASSERT_TRUE(QFile::link(Path("in.png"), Path("link.png")));
  ASSERT_EQ(link(qPrintable(Path("in.png")), qPrintable(Path("IN.PNG"))), 0);
  ASSERT_EQ(mkfifo(qPrintable(Path("pipe")), 0600), 0);
  ASSERT_TRUE(QFile::link(Path("a.svg"), Path("folder/link.svg")));
  const std::pair<const char*, const char*> kCases[] = {
      {"", "no display is available"},
      {"--export a.svg", "no picture is given"},
      {"in.png in.png", "more than one picture"},
      {"in.png --gestures", "needs a value"},
      {"in.png --gestures ok --gestures ok", "given twice"},
      {"in.png --bogus", "unknown option --bogus"},
      {"in.png --export a.svg", "needs --gestures"},
      {"none.png --gestures ok --export a.svg", "none.png cannot be read: there is no such file"},
      {"folder --gestures ok --export a.svg", "folder cannot be read: it is not a regular file"},
      {"text.png --gestures ok --export a.svg",
       "text.png is not a supported picture; supported are JPEG, PNG"},
      {"short.png --gestures ok --export a.svg", "is incomplete"},
      {"damaged.png --gestures ok --export a.svg", "damaged"},
      {"in\n.png --gestures ok --export a.svg", "the picture in\\n.png cannot be read"},
      {"in.png --gestures none --export a.svg", "none"},
      {"in.png --gestures=nonsense --export=a.svg", "nonsense:1: there is no gesture \"dance\""},
      {"in.png --language de --gestures nonsense", "nonsense:1: es gibt keine Geste „dance“"},
      {"in.png --gestures unknown --export a.svg", "unknown:1:"},
      {"in.png --language de --gestures notanumber", "„many“ ist keine Zahl."},
      {"in.png --gestures ok --export svg", ".svg, .png or .pdf"},
      {"in.png --language de --gestures ok --export a", "muss auf .svg, .png oder .pdf"},
      {"in.png --gestures ok --export a.svg --export none/a.svg", "no folder"},
      {"in.png --gestures ok --export a.svg --export ./a.svg", "also an input"},
      {"in.png --gestures ok --export in.png", "also an input"},
      {"in.png --gestures ok --export folder/../link.png", "also an input"},
      {"in.png --gestures ok --export IN.PNG", "also an input"},
      {"in.png --gestures ok --record pipe", "not a regular file"},
      {"in.png --gestures ok --export a.svg --export folder/link.svg", "also an input"},
      {"in.png --image a --gestures ok --export a.svg", "in.png cannot be read: line 1"},
      {"linked.svg --image a --gestures ok --export a.svg", "no element a in linked.svg"},
      {"linked.svg --image a --gestures ok --export a.png", "the name must end in .svg"},
      {"linked.svg --image a --image a", "given twice"},
      {"--image a --gestures ok", "no drawing is given"},
      {"in.png --theme=pink", "not pink"},
      {"in.png --theme=", "--theme needs a value"},
      {"-- --help", "the picture --help cannot be read"},
      {"in.png --gestures ok --export a.svg --record folder", "folder"},
      {"in.png --gestures ok --export a.svg --state badstate", "badstate cannot be read"},
      {"in.png --gestures ok --state largestate", "cannot be read: the file is larger than"},
      {"in.png --gestures flat --export a.svg", "the new height must be greater than 0"},
  };
  for (const auto& [arguments, reason] : kCases) ExpectRefusal(arguments, reason);
  EXPECT_FALSE(QDir(Path("config")).exists());
}

TEST_F(Program, NeedsADisplayOnlyForWindowsAndSaysSo) {
  for (const char* platform : {"xcb", "none"}) {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DISPLAY");
    environment.insert("QT_QPA_PLATFORM", platform);
    environment.insert("FONTCONFIG_FILE", "/none");
    QProcess process;
    process.setProcessEnvironment(environment);
    Start(process, "in.png --gestures ok --quiet");
    EXPECT_EQ(Ended(process).status, 0) << platform;
    Start(process, "in.png");
    const Result result = Ended(process);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors, QString("tesserae-studio: no display is available on the platform "
                                     "%1\n")
                                 .arg(platform)
                                 .toUtf8());
  }
}

TEST_F(Program, NamesThePartOfItsInstallationThatIsMissing) {
  const QString alone = Path("bin/studio"), libraries = Path("lib/tesserae");
  ASSERT_TRUE(QDir().mkpath(Path("bin")) && QDir().mkpath(libraries));
  qputenv("LD_LIBRARY_PATH", TESSERAE_LIBRARIES);
  ASSERT_TRUE(QFile::copy(TESSERAE_STUDIO, alone));
  const char* const run = "in.png --gestures ok --export a.svg";
  ExpectRefusal(run, "tesserae-picture-reader cannot be started: there is no such file", alone);
  const QString reader = libraries + "/tesserae-picture-reader";
  ASSERT_TRUE(QFile::copy(TESSERAE_LIBRARIES "/tesserae-picture-reader", reader));
  QFile::setPermissions(reader, QFile::ReadOwner);
  ExpectRefusal(run, "tesserae-picture-reader cannot be started: you do not have permission",
                alone);
  QFile::setPermissions(reader, QFile::ReadOwner | QFile::ExeOwner);
  ExpectRefusal(run, "module cannot be loaded", alone);
  qunsetenv("LD_LIBRARY_PATH");
}

constexpr const char* kHuge =
    "enter HorizontalCountTxt 8640\nenter VerticalCountTxt 8640\nkey Return\n";

TEST_F(Program, LeavesNoFileIfItIsInterruptedWhileBuilding) {
  Save("huge", kHuge);
  const QStringList before = Files();
  QProcess process;
  Start(process, "in.png --gestures huge --export a.svg --record record");
  ASSERT_TRUE(process.waitForReadyRead(30000));
  process.terminate();
  EXPECT_EQ(Ended(process).status, 1);
  EXPECT_EQ(Files(), before);
}

TEST_F(Program, ContinuesAfterTheTerminalClosesIfStartedWithNohup) {
  Save("huge", kHuge);
  QProcess process;
  Start(process, QString(TESSERAE_STUDIO) + " in.png --gestures huge --export a.svg", "nohup");
  ASSERT_TRUE(process.waitForReadyRead(30000));
  kill(pid_t(process.processId()), SIGHUP);
  EXPECT_FALSE(process.waitForFinished(300));
  process.terminate();
  EXPECT_EQ(Ended(process).status, 1);
}

TEST_F(Program, CanBeInterruptedWhileItWaitsForItsGestures) {
  ASSERT_EQ(mkfifo(qPrintable(Path("pipe")), 0600), 0);
  QProcess process;
  Start(process, "in.png --gestures pipe --export a.svg");
  ASSERT_TRUE(process.waitForStarted());
  const auto catchesSignals = [&] {
    QFile status(QString("/proc/%1/status").arg(process.processId()));
    if (!status.open(QIODevice::ReadOnly)) return false;
    const QByteArray text = status.readAll();
    const QByteArray caught = text.mid(text.indexOf("SigCgt:") + 7).trimmed().left(16);
    return (caught.toULongLong(nullptr, 16) >> (SIGTERM - 1) & 1) != 0;
  };
  ASSERT_TRUE(QTest::qWaitFor(catchesSignals, 20000));
  QTest::qWait(200);  // for it to open the pipe
  process.terminate();
  EXPECT_EQ(Ended(process).status, 1) << "nobody writes into the pipe";
}

TEST_F(Program, ClosesDialogAndWindowWithoutAQuestionIfItIsInterrupted) {
  const QStringList before = Files();
  QProcess process;
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert("QT_QPA_PLATFORM", "minimal");  // as if seen
  process.setProcessEnvironment(environment);
  const auto hasModule = [&] {
    QFile maps(QString("/proc/%1/maps").arg(process.processId()));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("TesseraeUI.so");
  };
  for (const char* arguments : {"in.png --export a.svg", "in.png"}) {
    Start(process, arguments);
    ASSERT_TRUE(QTest::qWaitFor(hasModule, 20000)) << arguments;
    QTest::qWait(300);  // for the dialog or the window
    process.terminate();
    EXPECT_EQ(Ended(process).status, 1) << arguments;
    EXPECT_EQ(Files(), before) << arguments;
  }
}

TEST_F(Program, SucceedsIfItIsInterruptedAfterItsOutputsAreInPlace) {
  QProcess process;
  for (unsigned i = 0; i < 12; ++i) {
    Start(process, "in.png --gestures ok --export late.svg");
    ASSERT_TRUE(process.waitForStarted());
    const QDeadlineTimer deadline(30000);
    while (!QFile::exists(Path("late.svg")) && !deadline.hasExpired()) usleep(100);
    usleep(1000 * i);
    process.terminate();
    EXPECT_EQ(Ended(process).status, 0) << i;
    QFile::remove(Path("late.svg"));
  }
}

TEST_F(Program, LeavesNoFileIfItsOutputCannotBeWritten) {
  const QStringList before = Files();
  QProcess process;
  process.setStandardOutputFile("/dev/full");
  Start(process, "in.png --gestures ok --export a.svg");
  const Result unheard = Ended(process);
  EXPECT_EQ(unheard.status, 2);
  EXPECT_TRUE(unheard.errors.contains("the disk is full"));
  EXPECT_EQ(Files(), before);
}

}  // namespace
