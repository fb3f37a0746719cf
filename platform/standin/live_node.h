#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include "platform/standin/live_token.h"

namespace standin {

/// A node that counts as alive until it is destroyed.
template <class Node>
class LiveNode final : public Node {
 public:
  static boost::intrusive_ptr<Node> Make(const LiveToken& token) {
    return boost::intrusive_ptr<Node>(new LiveNode(token));
  }

 private:
  explicit LiveNode(const LiveToken& nodeToken) : token(nodeToken) {}

  LiveToken token;
};

}  // namespace standin
