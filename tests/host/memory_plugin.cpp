// A plug-in with the module's memory, which tries every form in which memory is taken and given
// back. It answers with the number of the first that goes wrong, from 1.

#include <new>

#include "host/plugin_main.h"
#include "platform/qpbasic/ledger.h"

namespace {

constexpr size_t kSize = 24;

struct Form {
  void* (*take)();
  void (*giveBack)(void* block);
};

constexpr Form kForms[] = {
    {[] { return ::operator new(kSize); }, [](void* block) { ::operator delete(block); }},
    {[] { return ::operator new(kSize); }, [](void* block) { ::operator delete(block, kSize); }},
    {[] { return ::operator new[](kSize); }, [](void* block) { ::operator delete[](block); }},
    {[] { return ::operator new[](kSize); },
     [](void* block) { ::operator delete[](block, kSize); }},
    {[] { return ::operator new(kSize, std::nothrow); },
     [](void* block) { ::operator delete(block, std::nothrow); }},
    {[] { return ::operator new[](kSize, std::nothrow); },
     [](void* block) { ::operator delete[](block, std::nothrow); }},
};
constexpr int kThrowing = 4;

/// Takes one block and gives it back, and does nothing with null; without memory it throws or
/// gives null, as its form has it.
bool IsRight(const Form& form, bool isRefused, bool throws) try {
  const auto blocks = [] { return qpbasic::Ledger::Get().Counts().blocks; };
  const size_t before = blocks();
  void* const block = form.take();
  const size_t taken = blocks() - before;
  form.giveBack(block);
  form.giveBack(nullptr);
  if (isRefused) return !throws && !block;
  return taken == 1 && blocks() == before;
} catch (const std::bad_alloc&) {
  return isRefused && throws;
}

}  // namespace

/// "refused" as the caller: no memory can be had.
ResultCode PluginMain(const char* caller, const char*, PluginMessage*) {
  int number = 0;
  for (const Form& form : kForms)
    if (!IsRight(form, *caller == 'r', number++ < kThrowing)) return ResultCode{number};
  return ResultCode::kSuccess;
}
