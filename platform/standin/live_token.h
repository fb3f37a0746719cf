#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <memory>

namespace standin {

/// Tells how many objects of a kind are alive: each holds a copy of the kind's one token.
using LiveToken = std::shared_ptr<const void>;

inline LiveToken MakeLiveToken() {
  return std::make_shared<char>();
}

/// How many copies there are beside this one.
inline long CountLive(const LiveToken& token) {
  return token.use_count() - 1;
}

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
