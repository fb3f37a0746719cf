#pragma once

#include "platform/standin/operation_book.h"
#include "platform/standin/suite_book.h"
#include "platform/suites/host_suites.h"

namespace standin {

/// The table through which plug-ins acquire all others. Its functions, and those of the others,
/// work on the current host.
QPBasicSuite* BasicSuiteTable();

/// Declares all operations and adds the suites of the host.
void AddHostSuites(OperationBook& operations, SuiteBook& suites);

}  // namespace standin
