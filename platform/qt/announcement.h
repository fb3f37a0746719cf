#pragma once

#include <QString>
#include <QWidget>

namespace qtui {

/// Makes screen readers speak a text at once, whatever has the focus. `window` is a visible
/// top-level window, which owns an invisible child widget for the announcement. Ignores an empty
/// text. User-interface thread only.
void Announce(QWidget& window, const QString& text);

}  // namespace qtui
