#include "check/checked_module.h"

#include <cstdio>

#include "check/check.h"
#include "check/findings.h"

namespace check {

standin::ResourceFolders Resources() {
  auto folders = standin::ResourceFolders::OfProgram();
  const auto beside = std::filesystem::absolute(settings.module).parent_path();
  if (std::filesystem::is_directory(beside / "layouts")) folders.plugin = beside;
  return folders;
}

CheckedModule::CheckedModule(const standin::ResourceFolders& resources)
    : HostedModule(settings.module, resources) {
  host.Operations().Listen([this](const std::string& operation) {
    if (calls) calls->push_back(operation);
    if (settings.isVerbose) std::printf("  %s\n", operation.c_str());
  });
}

Calls CheckedModule::CallsDuring(const std::function<void()>& act) {
  Calls during;
  calls = &during;
  act();
  calls = nullptr;
  return during;
}

void CheckedModule::ExpectCalls(const char* what, const Calls& expected,
                                const std::function<ResultCode()>& send) {
  const Trying trying(what);
  Expect("calls of the host", CallsDuring([&] { Expect("the answer", send(), kSuccess); }),
         expected);
}

ResultCode CheckedModule::RunSampleDialog() {
  MosaicParameters record = SampleRecord();
  MosaicDialogState state{};
  return RunDialog(record, state);
}

ResultCode CheckedModule::SendPlain(const char* caller, const char* selector,
                                    PluginMessage& message) {
  return standin::ModuleImage(settings.module).Entry()(caller, selector, &message);
}

PluginMessage CheckedModule::PlainMessage() {
  PluginMessage message{};
  message.pluginRef = module.Ref();
  message.basicSuite = host.BasicSuite();
  return message;
}

void CheckedModule::ExpectNothingLeft() const {
  Expect("what is left", host.Leftovers(), Calls());
}

RunningModule::RunningModule(const standin::ResourceFolders& resources) : CheckedModule(resources) {
  Expect("the start-up", module.StartUp(), kSuccess);
}

RunningModule::~RunningModule() {
  Expect("the shut-down", module.ShutDown(), kSuccess);
  ExpectNothingLeft();
}

Calls Joined(Calls calls, const Calls& more) {
  calls.insert(calls.end(), more.begin(), more.end());
  return calls;
}

Calls WithSuites(const std::string& verb, size_t count) {
  Calls operations;
  for (size_t i = 0; i < count; ++i) operations.push_back(verb + kSuitesOfModule[i]);
  return operations;
}

}  // namespace check
