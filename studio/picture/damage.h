#pragma once

#include <QByteArray>
#include <QSize>
#include <QStringList>
#include <boost/core/noncopyable.hpp>

/// Whether a picture file is there to its end. Some decoders fill up what is missing without a
/// word, so for their formats ("jpeg", "png", "bmp", "gif") the file's own structure is asked; the
/// others refuse a short file themselves and count as complete here.
bool IsCompleteFile(const QByteArray& format, const QByteArray& bytes);

/// Whether a JPEG file has so many scans, each of which goes over the whole picture, that decoding
/// it would take more than some seconds.
bool HasAbsurdScans(const QByteArray& jpeg, QSize size);

/// While one of these lives, what Qt's image decoders report on this thread is collected here
/// instead of shown. One at a time on each thread.
class DecoderMessages : boost::noncopyable {
 public:
  DecoderMessages();
  ~DecoderMessages();

  /// Whether a decoder reported damage that costs part of the picture. Reports of stray bytes or
  /// odd profiles, which leave the picture whole, don't count.
  bool TellOfDamage() const;

 private:
  static void Collect(QtMsgType type, const QMessageLogContext& context, const QString& text);

  QStringList messages;
};
