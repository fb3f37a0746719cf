#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <memory>

namespace standin {

/// Counts the live objects of a kind: each holds a copy of the kind's token.
using LiveToken = std::shared_ptr<const void>;

inline LiveToken MakeLiveToken() {
  return std::make_shared<char>();
}

/// The number of copies, not counting this one.
inline long CountLive(const LiveToken& token) {
  return token.use_count() - 1;
}

/// A node that holds a token until it is destroyed.
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
