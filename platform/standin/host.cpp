#include "platform/standin/host.h"

#include <algorithm>
#include <stdexcept>

#include "platform/qpbasic/ledger.h"
#include "platform/standin/sheet_service.h"
#include "platform/vxui/dialogs.h"

namespace standin {
namespace {

Host* currentHost = nullptr;

std::string NameOf(PluginRef plugin) {
  const std::string& name = plugin->name.empty() ? plugin->fileName : plugin->name;
  return plugin->isRemoved ? name + " (removed)" : name;
}

}  // namespace

Host::Host(UserInterface& interface, const ResourceFolders& resources)
    : userInterface(interface),
      suites(operations),
      lists(resources),
      sheets(std::make_unique<SheetService>(*this, resources.plugin / "layouts")),
      hostModule(objects.modules.Add({.fileName = "host", .name = "host", .isHost = true})),
      ledgerMark(qpbasic::Ledger::Get().Mark()) {
  if (currentHost) throw std::logic_error("a process has one host at a time");
  qpbasic::Ledger::Get().ClearFaults();  // of an earlier host
  AddSuites();
  currentHost = this;
}

Host::~Host() {
  currentHost = nullptr;
}

Host& Host::Current() {
  if (!currentHost) throw std::logic_error("there is no host");
  return *currentHost;
}

PluginRef Host::AddPlugin(std::string fileName) {
  return objects.modules.Add({.fileName = std::move(fileName)});
}

void Host::RemoveRegistrations(PluginRef plugin) {
  plugin->name.clear();
  suites.RemoveSuitesOf(plugin);
  objects.notifiers.RemoveIf(
      [plugin](const OpaqueNotifier& notifier) { return notifier.plugin == plugin; });
}

void Host::RemovePlugin(PluginRef plugin) {
  RemoveRegistrations(plugin);
  plugin->isRemoved = true;
}

bool Host::IsInUse(PluginRef plugin) const {
  const auto& accesses = objects.accesses.Objects();
  return suites.IsInUse(plugin) ||
         std::any_of(accesses.begin(), accesses.end(),
                     [plugin](const auto& access) { return access->plugin == plugin; });
}

void Host::AddResourceProblem(const std::string& reason) {
  if (std::find(resourceProblems.begin(), resourceProblems.end(), reason) == resourceProblems.end())
    resourceProblems.push_back(reason);
}

std::vector<std::string> Host::Leftovers() const {
  std::vector<std::string> lines;
  for (const auto& suite : suites.Suites().Objects())
    if (suite->users)
      lines.push_back("suite \"" + suite->name + "\" " + std::to_string(suite->version) + " has " +
                      std::to_string(suite->users) + " users");
  for (const auto& access : objects.accesses.Objects())
    lines.push_back("access to " + NameOf(access->plugin) + " is held");
  for (const auto& context : objects.contexts.Objects())
    lines.push_back("context of " + NameOf(context->plugin) + " is open");
  for (const auto& string : objects.strings.Objects())
    lines.push_back("string \"" + string->text + "\" is not disposed of");
  for (const std::string& sheet : sheets->Leftovers()) lines.push_back(sheet);
  if (const int depth = vx::ui::ModalContext::Depth())
    lines.push_back(std::to_string(depth) + " modal contexts are alive");
  const qpbasic::Ledger& ledger = qpbasic::Ledger::Get();
  for (const std::string& block : ledger.Unfreed(ledgerMark))
    lines.push_back("not freed: " + block);
  for (const std::string& fault : ledger.Faults()) lines.push_back(fault);
  return lines;
}

}  // namespace standin
