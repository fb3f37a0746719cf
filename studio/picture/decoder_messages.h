#pragma once

#include <QStringList>

/// While one of these lives, what Qt's image decoders have to say on this thread is collected
/// here, and what libraries behind them write to the error output is lost: the user gets one line
/// from us. One at a time.
class DecoderMessages {
 public:
  DecoderMessages();
  ~DecoderMessages();
  DecoderMessages(const DecoderMessages&) = delete;
  DecoderMessages& operator=(const DecoderMessages&) = delete;

  /// Whether a decoder complained of damage that costs part of the picture. Complaints about
  /// stray bytes or odd profiles, which leave the picture whole, don't count.
  bool TellOfDamage() const;

 private:
  static void Collect(QtMsgType type, const QMessageLogContext& context, const QString& text);

  QtMessageHandler previous;
  int errorOutput;  // the true one
  QStringList messages;
};
