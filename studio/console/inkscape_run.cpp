#include "studio/console/inkscape_run.h"

#include <QTemporaryDir>

#include "platform/nrvcore/file.h"
#include "studio/base/file_name.h"
#include "studio/base/studio_error.h"
#include "studio/console/terminal.h"
#include "studio/drawing/svg_drawing.h"

namespace {

constexpr int kSomethingWrong = 2;

QStringList ImagesIn(const SvgDrawing& drawing, const QStringList& selected) {
  if (selected.isEmpty())
    throw StudioError("$$$/Studio/Inkscape/NothingSelected=select a picture first");
  QStringList images;
  for (const ImageElement* image : drawing.ImagesIn(selected)) images << image->Id();
  if (images.isEmpty()) {
    throw StudioError(
        "$$$/Studio/Inkscape/NoPicture=the selection has no picture; mosaics are made of pictures, "
        "such as imported photographs");
  }
  return images;
}

void Run(CommandLine& line, const ConsoleRun::WindowCamera& windowCamera) {
  line.images = ImagesIn(SvgDrawing::Read(line.picture), line.selected);
  const QTemporaryDir folder;
  if (!folder.isValid()) throw StudioError(folder.errorString());
  const QString result = folder.filePath("drawing.svg");
  line.exports = {result};
  line.isQuiet = true;
  const bool isCancelled = ConsoleRun(line, windowCamera).Run() != 0;
  if (isCancelled) return;
  PrintBytes(QByteArray::fromStdString(nrvcore::ReadFile(SystemPath(result))));
}

}  // namespace

int RunForInkscape(CommandLine line, const ConsoleRun::WindowCamera& windowCamera) try {
  Run(line, windowCamera);
  return 0;
} catch (const std::exception& error) {
  PrintSentence(Sentence(ReasonText(error)));
  return kSomethingWrong;
}
