#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>

#include "studio/console/command_line.h"

/// Whoever answers the dialogs that open while this lives.
class DialogUser {
 public:
  virtual ~DialogUser() = default;

  /// Why the last dialog could not be answered; empty when it could.
  virtual QString Problem() const = 0;
  /// What the last dialog looked like, as PNG; empty when nobody wanted to know.
  virtual QByteArray Picture() const { return {}; }
};

/// A gesture file without a window, a gesture file at a window, a person, or nobody but a
/// photographer, as the command line has it. `report` hears what the person would be told. Throws
/// StudioError when nobody can be there, and another std::exception for a bad gesture file.
std::unique_ptr<DialogUser> MakeDialogUser(const CommandLine& line,
                                           std::function<void(const std::string&)> report);
