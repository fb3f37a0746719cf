#include "platform/standin/user_interface.h"

#include <ostream>

namespace standin {

void ConsoleUserInterface::ShowAlert(const std::string& text) {
  stream << "Alert: " << text << std::endl;
}

void ConsoleUserInterface::ShowAbout(const std::string& firstText, const std::string& secondText) {
  stream << firstText << '\n' << secondText << std::endl;
}

}  // namespace standin
