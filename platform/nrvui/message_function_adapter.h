#pragma once

#include <boost/function.hpp>

#include "platform/nrvcore/error.h"

namespace nrvui::ui {

/// Lets a function of a specific message class stand where one of the generic class is called.
template <class Generic, class Specific>
class MessageFunctionAdapter {
 public:
  explicit MessageFunctionAdapter(const boost::function1<void, Specific*>& specificFunction)
      : function(specificFunction) {}

  /// A message that is absent or of another class throws the invalid-type-conversion error; an
  /// empty function throws boost::bad_function_call.
  void operator()(Generic* message) const {
    auto* specific = dynamic_cast<Specific*>(message);
    if (specific == nullptr) nrvcore::config::ThrowInvalidTypeConversion();
    function(specific);
  }

 private:
  boost::function1<void, Specific*> function;
};

}  // namespace nrvui::ui
