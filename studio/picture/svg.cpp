#include "studio/picture/svg.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>

#include "studio/base/studio_error.h"

namespace {

constexpr int kMostTime = 8000;  // ms
constexpr int kAskEvery = 50;

QImage Received(QProcess& process) {
  int32_t size[2];
  constexpr qint64 kHeader = sizeof size;
  if (process.read(reinterpret_cast<char*>(size), kHeader) != kHeader) return {};
  QImage image(size[0], size[1], QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) throw StudioError(kNoMemory);
  image.setDotsPerMeterX(kSvgDotsPerMeter);
  image.setDotsPerMeterY(kSvgDotsPerMeter);
  auto* const bits = reinterpret_cast<char*>(image.bits());
  return process.read(bits, image.sizeInBytes()) == image.sizeInBytes() ? image : QImage();
}

}  // namespace

bool IsSvg(const QByteArray& format) {
  return format == "svg" || format == "svgz";
}

QImage DrawSvg(const QByteArray& bytes, const QString& path,
               const std::function<bool()>& isStopped) {
  QProcess process;
  process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  // Where it lies beside a program, in the build folder as where it is installed.
  constexpr const char* kReader = "/../lib/tesserae/tesserae-svg-reader";
  process.start(QCoreApplication::applicationDirPath() + kReader, QStringList());
  if (!process.waitForStarted()) {
    throw StudioError("$$$/Studio/Picture/Unreadable=the picture %1 cannot be read: %2", path,
                      process.errorString());
  }
  process.write(bytes);
  process.closeWriteChannel();
  QDeadlineTimer deadline(kMostTime);
  while (!process.waitForFinished(kAskEvery) && !deadline.hasExpired() && !isStopped()) continue;
  if (process.state() != QProcess::NotRunning || process.exitStatus() != QProcess::NormalExit) {
    process.kill();
    process.waitForFinished();
    return {};
  }
  if (process.exitCode() == int(SvgAnswer::kShowsOtherFile)) {
    throw StudioError(
        "$$$/Studio/Picture/OtherFile=the picture %1 shows another file; it must hold all that it "
        "shows",
        path);
  }
  return process.exitCode() == int(SvgAnswer::kDrawn) ? Received(process) : QImage();
}
