#include "dialog/node_lookup.h"

#include <atomic>
#include <memory>
#include <queue>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bench/figures.h"
#include "platform/nrvui/ui_panel.h"

namespace {

using NodeRef = boost::intrusive_ptr<nrvui::ui::UI_Node>;

constexpr int kChildren = 8;

/// As long as the IDs of a dialog's controls are.
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

struct NoCount {
  void TakeReference() {}
  void GiveReferenceBack() {}
};

/// What every walk must do that holds the nodes in its queue, and nothing else.
struct AtomicCount {
  void TakeReference() { count.fetch_add(1, std::memory_order_relaxed); }
  void GiveReferenceBack() { count.fetch_sub(1, std::memory_order_acq_rel); }

  std::atomic<int> count = 0;
};

template <class Count>
struct PlainNode : Count {
  explicit PlainNode(std::string id) : nodeID(std::move(id)) {}

  std::string nodeID;
  std::vector<PlainNode*> children;
};

template <class Count>
auto MakePlainNodes(int count) {
  std::vector<std::unique_ptr<PlainNode<Count>>> nodes;
  for (int i = 0; i < count; ++i) {
    nodes.push_back(std::make_unique<PlainNode<Count>>(NodeID(i)));
    if (i > 0) nodes[size_t(i - 1) / kChildren]->children.push_back(nodes.back().get());
  }
  return nodes;
}

template <class Count>
PlainNode<Count>* FindPlain(PlainNode<Count>& root, const std::string& nodeID) {
  std::queue<PlainNode<Count>*> queue;
  root.TakeReference();
  queue.push(&root);
  for (; !queue.empty(); queue.pop()) {
    PlainNode<Count>* const node = queue.front();
    node->GiveReferenceBack();
    if (node->nodeID == nodeID) return node;
    for (PlainNode<Count>* child : node->children) {
      child->TakeReference();
      queue.push(child);
    }
  }
  return nullptr;
}

template <class Find>
void Measure(benchmark::State& state, const void* last, const Find& find) {
  if (find() != last) throw std::runtime_error("the wrong node was found");
  for (auto _ : state) benchmark::DoNotOptimize(find());
  state.counters["per node"] =
      benchmark::Counter(double(state.range(0)), benchmark::Counter::kIsIterationInvariantRate |
                                                     benchmark::Counter::kInvert);
}

void FindLast(benchmark::State& state) {
  const std::vector<NodeRef> nodes = MakeNodes(int(state.range(0)));
  const nrvcore::String nodeID = nodes.back()->UI_GetNodeID();
  Measure(state, nodes.back().get(), [&] { return FindNodeByID(nodes.front(), nodeID).get(); });
}

template <class Count>
void FindLastPlain(benchmark::State& state) {
  const auto nodes = MakePlainNodes<Count>(int(state.range(0)));
  const std::string nodeID = nodes.back()->nodeID;
  Measure(state, nodes.back().get(), [&] { return FindPlain(*nodes.front(), nodeID); });
}

BENCHMARK(FindLast)->Name("Lookup/last")->RangeMultiplier(16)->Range(16, 65536);
BENCHMARK(FindLastPlain<NoCount>)->Name("Lookup/plain")->RangeMultiplier(16)->Range(16, 65536);
BENCHMARK(FindLastPlain<AtomicCount>)
    ->Name("Lookup/counting")
    ->RangeMultiplier(16)
    ->Range(16, 65536);

constexpr const char* kPlain = "a walk over plain pointers comparing plain strings";
constexpr const char* kCounting = "the plain walk with a reference counted for each queued node";
constexpr bench::Line kLines[] = {
    {.what = "lookup of the last of 16 nodes",
     .figure = "Lookup/last/16",
     .against = kPlain,
     .peer = "Lookup/plain/16",
     .limit = 3},
    {.what = "the same",
     .figure = "Lookup/last/16",
     .against = kCounting,
     .peer = "Lookup/counting/16"},
    {.what = "of 256",
     .figure = "Lookup/last/256",
     .against = kPlain,
     .peer = "Lookup/plain/256",
     .limit = 3},
    {.what = "the same",
     .figure = "Lookup/last/256",
     .against = kCounting,
     .peer = "Lookup/counting/256"},
    {.what = "of 4096",
     .figure = "Lookup/last/4096",
     .against = kPlain,
     .peer = "Lookup/plain/4096",
     .limit = 3},
    {.what = "the same",
     .figure = "Lookup/last/4096",
     .against = kCounting,
     .peer = "Lookup/counting/4096"},
    {.what = "of 65536",
     .figure = "Lookup/last/65536",
     .against = kPlain,
     .peer = "Lookup/plain/65536",
     .limit = 3},
    {.what = "the same",
     .figure = "Lookup/last/65536",
     .against = kCounting,
     .peer = "Lookup/counting/65536"},
    {.what = "a node's share of 65536",
     .figure = "Lookup/last/65536:per node",
     .against = "its share of 16",
     .peer = "Lookup/last/16:per node",
     .limit = 2},
};
const bench::Table kTable(4, kLines);

}  // namespace
