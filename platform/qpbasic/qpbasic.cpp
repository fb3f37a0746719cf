#include "platform/qpbasic/qpbasic.h"

#include "platform/qpbasic/ledger.h"

ResultCode QPBasicAllocateBlock(size_t size, void** block) noexcept {
  return qpbasic::Ledger::Get().Allocate(size, nullptr, block);
}

ResultCode QPBasicFreeBlock(void* block) noexcept {
  return qpbasic::Ledger::Get().Free(block);
}
