#include "platform/standin/operation_book.h"

#include <stdexcept>

namespace standin {

OperationBook::Operation& OperationBook::Declare(const std::string& name) {
  Operation& operation = operations[name];
  operation.name = name;
  return operation;
}

std::vector<std::string> OperationBook::Names() const {
  std::vector<std::string> names;
  for (const auto& [name, operation] : operations) names.push_back(name);
  return names;
}

const OperationBook::Operation& OperationBook::Find(std::string_view name) const {
  const auto found = operations.find(name);
  if (found == operations.end())
    throw std::invalid_argument("the host has no operation \"" + std::string(name) + "\"");
  return found->second;
}

OperationBook::Operation& OperationBook::Find(std::string_view name) {
  return const_cast<Operation&>(std::as_const(*this).Find(name));
}

void OperationBook::Refuse(std::string_view name, ResultCode code, size_t callsFromNow) {
  Find(name).disturbance = Disturbance{callsFromNow, code, nullptr};
}

void OperationBook::Throw(std::string_view name, std::exception_ptr exception,
                          size_t callsFromNow) {
  Find(name).disturbance = Disturbance{callsFromNow, ResultCode::kSuccess, std::move(exception)};
}

void OperationBook::DisturbNothing() {
  for (auto& [name, operation] : operations) operation.disturbance.reset();
}

size_t OperationBook::Calls(std::string_view name) const {
  return Find(name).calls;
}

ResultCode OperationBook::CheckIn(Operation& operation) {
  ++operation.calls;
  if (listener) listener(operation.name);
  if (!operation.disturbance) return ResultCode::kSuccess;
  if (operation.disturbance->callsFromNow > 1) {
    --operation.disturbance->callsFromNow;
    return ResultCode::kSuccess;
  }
  ++disturbed;
  const Disturbance disturbance = *std::exchange(operation.disturbance, {});
  if (disturbance.exception) std::rethrow_exception(disturbance.exception);
  return disturbance.code;
}

}  // namespace standin
