#include "platform/standin/operation_registry.h"

#include <stdexcept>

namespace standin {

std::vector<const char*>& OperationRegistry::ListedNames() {
  static std::vector<const char*> names;
  return names;
}

void OperationRegistry::DeclareAll() {
  for (const char* name : ListedNames()) Declare(name);
}

OperationRegistry::Operation& OperationRegistry::Declare(const std::string& name) {
  Operation& operation = operations[name];
  operation.name = name;
  return operation;
}

std::vector<std::string> OperationRegistry::Names() const {
  std::vector<std::string> names;
  for (const auto& [name, operation] : operations) names.push_back(name);
  return names;
}

OperationRegistry::Operation& OperationRegistry::Find(std::string_view name) {
  const auto found = operations.find(name);
  if (found == operations.end())
    throw std::invalid_argument("the host has no operation \"" + std::string(name) + "\"");
  return found->second;
}

void OperationRegistry::Refuse(std::string_view name, ResultCode code, size_t callsFromNow) {
  Find(name).fault = InjectedFault{callsFromNow, code, nullptr};
}

void OperationRegistry::Throw(std::string_view name, std::exception_ptr exception,
                              size_t callsFromNow) {
  Find(name).fault = InjectedFault{callsFromNow, ResultCode::kSuccess, std::move(exception)};
}

void OperationRegistry::ClearFaults() {
  for (auto& [name, operation] : operations) operation.fault.reset();
}

ResultCode OperationRegistry::CheckIn(Operation& operation) {
  ++operation.calls;
  if (listener) listener(operation.name);
  if (!operation.fault) return ResultCode::kSuccess;
  if (operation.fault->callsFromNow > 1) {
    --operation.fault->callsFromNow;
    return ResultCode::kSuccess;
  }
  ++injectedFaults;
  const InjectedFault fault = *std::exchange(operation.fault, {});
  if (fault.exception) std::rethrow_exception(fault.exception);
  return fault.code;
}

}  // namespace standin
