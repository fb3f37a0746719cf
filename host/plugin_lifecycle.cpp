#include <new>

#include "host/bounded_string.h"
#include "host/error.h"
#include "host/plugin.h"
#include "host/resource_text.h"
#include "platform/suites/message_names.h"

namespace {

constexpr int32_t kAboutTextList = 16600;

}  // namespace

ResultCode Plugin::OnStartup(PluginMessage* message) {
  (void)SetCurrentPlugin(this);
  const ResultCode code = AcquireSuites();
  return Failed(code) ? code : Guarded([&] { return RegisterWithHost(message); });
}

ResultCode Plugin::RegisterWithHost(PluginMessage* message) {
  ResultCode code = Suite<QPPluginsSuite>()->SetPluginName(message->pluginRef, name);
  if (Failed(code)) return code;
  if (addStartedNotifier) {
    char notifierName[sizeof(name)];
    FormatInto(notifierName, "%s App Started Notifier", name);
    code = Suite<VXNotifierSuite>()->AddNotifier(message->pluginRef, notifierName,
                                                 messages::kStartedNotifierType, nullptr);
    if (Failed(code)) return code;
  }
  code = ContinueStartup();
  if (Failed(code)) return code;
  (void)FinishStartup();
  return ResultCode::kSuccess;
}

void Plugin::AbandonStartup(uint16_t earlierSets) {
  if (suites) suiteAcquireCount = earlierSets + 1;
  ReleaseSuites();
}

ResultCode Plugin::OnShutdown(PluginMessage*) {
  ReleaseSuites();
  (void)SetCurrentPlugin(nullptr);
  return ResultCode::kSuccess;
}

ResultCode Plugin::OnUnload(PluginMessage* message) {
  (void)PrepareUnload(message);
  (void)SetCurrentPlugin(nullptr);
  ReleaseSuites();
  return ResultCode::kSuccess;
}

ResultCode Plugin::OnReload(PluginMessage*) {
  (void)SetCurrentPlugin(this);
  const ResultCode code = AcquireSuites();
  if (!Failed(code)) (void)FinishStartup();
  return code;
}

ResultCode Plugin::AcquireSuites() {
  if (!HoldsSuites()) ReleaseSuites();
  if (!suites) suites = new (std::nothrow) SuiteSet;
  if (!suites) return ResultCode::kOutOfMemory;
  // Also after a failure, so that destroying the set releases the suites that it acquired.
  suiteAcquireCount = 1;
  const ResultCode code = suites->Error();
  if (Failed(code)) ReleaseSuites();
  return code;
}

void Plugin::ReleaseSuites() {
  delete suites;
  suites = nullptr;
}

ResultCode Plugin::OnAbout(PluginMessage* message) {
  char firstText[kListTextSize];
  char secondText[kListTextSize];
  ReadListEntry(message->pluginRef, kAboutTextList, 1, firstText, sizeof(firstText));
  ReadListEntry(message->pluginRef, kAboutTextList, 2, secondText, sizeof(secondText));
  (void)Suite<KDMBasicSuite>()->ShowAboutBox(pluginRef, firstText, secondText);
  return ResultCode::kSuccess;
}
