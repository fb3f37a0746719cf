#pragma once

#include <QByteArray>

namespace bench {

/// The dialog's layout as a Qt Designer form with the same controls in the same places.
QByteArray MosaicFormText();

}  // namespace bench
