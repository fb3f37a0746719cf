#include "platform/vxui/modal_context.h"

namespace vx::ui {

namespace {

int depth = 0;
int blockingDepth = 0;

}  // namespace

ModalContext::ModalContext(bool blocksApplication) : blocks(blocksApplication) {
  ++depth;
  if (blocks) ++blockingDepth;
}

ModalContext::~ModalContext() {
  --depth;
  if (blocks) --blockingDepth;
}

int ModalContext::Depth() {
  return depth;
}

bool ModalContext::IsApplicationBlocked() {
  return blockingDepth > 0;
}

}  // namespace vx::ui
