#include "platform/vxui/modal_context.h"

namespace vx::ui {

namespace {

int depth = 0;

}  // namespace

ModalContext::ModalContext(bool) {
  ++depth;
}

ModalContext::~ModalContext() {
  --depth;
}

int ModalContext::Depth() {
  return depth;
}

}  // namespace vx::ui
