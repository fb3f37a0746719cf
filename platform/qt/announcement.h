#pragma once

#include <QString>
#include <QWidget>

namespace qtui {

/// Has screen readers speak a text at once, wherever the focus is. `window` is a shown top-level
/// window; it gets an invisible child that stands for its latest announcement. Does nothing for an
/// empty text. User-interface thread only.
void Announce(QWidget& window, const QString& text);

}  // namespace qtui
