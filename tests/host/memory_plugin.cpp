// A plug-in with the module's allocation operators, which checks each pair of them.

#include <new>

#include "host/plugin_main.h"
#include "platform/qpbasic/ledger.h"

namespace {

constexpr size_t kSize = 24;

struct OperatorPair {
  void* (*allocate)();
  void (*release)(void* block);
};

constexpr OperatorPair kPairs[] = {
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
constexpr int kThrowingPairs = 4;

/// Whether the pair allocates one block and releases it, and ignores null. If the host refuses, the
/// pair must throw or return null, as its kind requires.
bool IsCorrect(const OperatorPair& pair, bool isRefused, bool throws) {
  const auto blocks = [] { return qpbasic::Ledger::Get().Counts().blocks; };
  const size_t before = blocks();
  try {
    void* const block = pair.allocate();
    const size_t allocated = blocks() - before;
    pair.release(block);
    pair.release(nullptr);
    if (isRefused) return !throws && !block;
    return allocated == 1 && blocks() == before;
  } catch (const std::bad_alloc&) {
    return isRefused && throws;
  }
}

}  // namespace

/// The caller is "allowed" or "refused", depending on whether the host allocates blocks. Returns
/// the number of the first incorrect pair, from 1, or 0.
ResultCode PluginMain(const char* caller, const char*, PluginMessage*) {
  int number = 0;
  for (const OperatorPair& pair : kPairs)
    if (!IsCorrect(pair, *caller == 'r', number++ < kThrowingPairs)) return ResultCode{number};
  return ResultCode::kSuccess;
}
