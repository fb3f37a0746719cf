// A plug-in with the module's memory, which tries every form in which memory is taken and given
// back. It answers with the line of what goes wrong.

#include <new>

#include "host/plugin_main.h"
#include "platform/qpbasic/ledger.h"

namespace {

constexpr size_t kSize = 24;

struct Form {
  int line;
  void* (*take)();
  void (*giveBack)(void* block);
};

#define FORM(take, giveBack)                                     \
  {                                                              \
    __LINE__, [] { return take; }, [](void* block) { giveBack; } \
  }

constexpr Form kOrdinary[] = {
    FORM(::operator new(kSize), ::operator delete(block)),
    FORM(::operator new(kSize), ::operator delete(block, kSize)),
    FORM(::operator new[](kSize), ::operator delete[](block)),
    FORM(::operator new[](kSize), ::operator delete[](block, kSize)),
};

constexpr Form kNonThrowing[] = {
    FORM(::operator new(kSize, std::nothrow), ::operator delete(block, std::nothrow)),
    FORM(::operator new[](kSize, std::nothrow), ::operator delete[](block, std::nothrow)),
};

#undef FORM

/// Whether it is one block, until it is given back, and the same as nothing for null.
bool IsABlock(const Form& form) {
  const qpbasic::Ledger& ledger = qpbasic::Ledger::Get();
  const size_t blocks = ledger.Counts().blocks;
  void* const block = form.take();
  const bool isTaken = ledger.Counts().blocks == blocks + 1;
  form.giveBack(block);
  form.giveBack(nullptr);
  return isTaken && ledger.Counts().blocks == blocks;
}

bool Throws(const Form& form) {
  try {
    form.giveBack(form.take());
    return false;
  } catch (const std::bad_alloc&) {
    return true;
  }
}

bool GivesNull(const Form& form) {
  return !form.take();
}

template <size_t kCount>
int FirstWrong(const Form (&forms)[kCount], bool (*isRight)(const Form& form)) {
  for (const Form& form : forms)
    if (!isRight(form)) return form.line;
  return 0;
}

}  // namespace

/// "refused" as the caller: no memory can be had.
ResultCode PluginMain(const char* caller, const char*, PluginMessage*) {
  const bool refused = *caller == 'r';
  const int line = FirstWrong(kOrdinary, refused ? Throws : IsABlock);
  return ResultCode{line ? line : FirstWrong(kNonThrowing, refused ? GivesNull : IsABlock)};
}
