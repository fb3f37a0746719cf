#include "dialog/node_lookup.h"

#include <atomic>
#include <memory>
#include <queue>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "bench/figures.h"
#include "platform/nrvui/ui_views.h"

namespace {

using NodeRef = boost::intrusive_ptr<nrvui::ui::UI_Node>;

constexpr int kChildren = 8;

/// An ID about as long as those of the dialog's controls.
std::string NodeID(int number) {
  static constexpr const char* kNames[] = {"okButton", "NewWidthTxt", "ColorRadio",
                                           "HorizontalCountTxt", "MosaicUseRatioButton"};
  return kNames[number % std::size(kNames)] + std::to_string(number);
}

std::vector<NodeRef> MakeNodes(int count) {
  std::vector<NodeRef> nodes;
  for (int i = 0; i < count; ++i) {
    const NodeRef& node = nodes.emplace_back(new nrvui::ui::UI_Panel);
    node->UI_SetNodeID(nrvcore::String(NodeID(i).c_str()));
    if (i > 0) nodes[size_t(i - 1) / kChildren]->ChildPushBack(node);
  }
  return nodes;
}

/// A breadth-first walk over plain nodes.
struct BareWalk {
  static constexpr bool kCopiesIDs = false;

  void TakeReference() {}
  void GiveReferenceBack() {}
};

/// The same walk with the lookup's costs: a counted reference for each queue entry and for the node
/// being examined, and a copy of each ID.
struct SameWalk {
  static constexpr bool kCopiesIDs = true;

  void TakeReference() { count.fetch_add(1, std::memory_order_relaxed); }
  void GiveReferenceBack() { count.fetch_sub(1, std::memory_order_acq_rel); }

  std::atomic<int> count = 0;
};

template <class Walk>
struct PlainNode : Walk {
  explicit PlainNode(std::string id) : nodeID(std::move(id)) {}

  std::conditional_t<Walk::kCopiesIDs, std::string, const std::string&> ID() const {
    return nodeID;
  }

  std::string nodeID;
  std::vector<PlainNode*> children;
};

template <class Walk>
auto MakePlainNodes(int count) {
  std::vector<std::unique_ptr<PlainNode<Walk>>> nodes;
  for (int i = 0; i < count; ++i) {
    nodes.push_back(std::make_unique<PlainNode<Walk>>(NodeID(i)));
    if (i > 0) nodes[size_t(i - 1) / kChildren]->children.push_back(nodes.back().get());
  }
  return nodes;
}

template <class Walk>
PlainNode<Walk>* FindPlain(PlainNode<Walk>& root, const std::string& nodeID) {
  std::queue<PlainNode<Walk>*> queue;
  root.TakeReference();
  queue.push(&root);
  while (!queue.empty()) {
    PlainNode<Walk>* const node = queue.front();
    node->TakeReference();
    const bool isFound = node->ID() == nodeID;
    if (!isFound) {
      queue.pop();
      node->GiveReferenceBack();
      for (PlainNode<Walk>* child : node->children) {
        child->TakeReference();
        queue.push(child);
      }
    }
    node->GiveReferenceBack();
    if (!isFound) continue;
    for (; !queue.empty(); queue.pop()) queue.front()->GiveReferenceBack();
    return node;
  }
  return nullptr;
}

template <class Find>
void Measure(benchmark::State& state, const void* last, const Find& find) {
  if (find() != last) throw std::runtime_error("the wrong node was found");
  for (auto _ : state) benchmark::DoNotOptimize(find());
}

void FindLast(benchmark::State& state) {
  const std::vector<NodeRef> nodes = MakeNodes(int(state.range(0)));
  const nrvcore::String nodeID = nodes.back()->UI_GetNodeID();
  Measure(state, nodes.back().get(), [&] { return FindNodeByID(*nodes.front(), nodeID).get(); });
}

template <class Walk>
void FindLastPlain(benchmark::State& state) {
  const auto nodes = MakePlainNodes<Walk>(int(state.range(0)));
  const std::string nodeID = nodes.back()->nodeID;
  Measure(state, nodes.back().get(), [&] { return FindPlain(*nodes.front(), nodeID); });
}

BENCHMARK(FindLast)->Name("Lookup/last")->RangeMultiplier(16)->Range(16, 65536);
BENCHMARK(FindLastPlain<BareWalk>)->Name("Lookup/bare")->RangeMultiplier(16)->Range(16, 65536);
BENCHMARK(FindLastPlain<SameWalk>)->Name("Lookup/same")->RangeMultiplier(16)->Range(16, 65536);

constexpr const char* kSame =
    "a walk over plain nodes that counts references and copies each ID as the lookup does";
constexpr const char* kBare = "the walk without counting and copying";
constexpr double kMost = 1.5;
constexpr bench::Line kLines[] = {
    {.what = "lookup of the last of 16 nodes",
     .figure = "Lookup/last/16",
     .against = kSame,
     .peer = "Lookup/same/16",
     .limit = kMost},
    {.what = "the same", .figure = "Lookup/last/16", .against = kBare, .peer = "Lookup/bare/16"},
    {.what = "of 256",
     .figure = "Lookup/last/256",
     .against = kSame,
     .peer = "Lookup/same/256",
     .limit = kMost},
    {.what = "of 4096",
     .figure = "Lookup/last/4096",
     .against = kSame,
     .peer = "Lookup/same/4096",
     .limit = kMost},
    {.what = "of 65536",
     .figure = "Lookup/last/65536",
     .against = kSame,
     .peer = "Lookup/same/65536",
     .limit = kMost},
    {.what = "the same",
     .figure = "Lookup/last/65536",
     .against = kBare,
     .peer = "Lookup/bare/65536"},
};
const bench::Table kTable(4, kLines);

}  // namespace
