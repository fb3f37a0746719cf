#pragma once

#include <QByteArray>

namespace bench {

/// The dialog's layout as a form of Qt's designer, with the same controls in the same places.
QByteArray MosaicFormText();

}  // namespace bench
