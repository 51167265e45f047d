#include <benchmark/benchmark.h>

#include <string>

#include "output/substit.h"
#include "text/dliststr.h"
#include "text/replace.h"
#include "text/str.h"

namespace {

// A value text with both places filled, as the wide expansion does per line.
void BM_ReplacePlaceholders(benchmark::State& state) {
  String text("permit tcp from ${0} to ${1} port 443\n");
  for (auto _ : state) {
    String made = text;
    made.ReplaceAll("${0}", "10.1.2.3");
    made.ReplaceAll("${1}", "host1.example");
    benchmark::DoNotOptimize(made.Text());
  }
}
BENCHMARK(BM_ReplacePlaceholders);

// Replacements that bring new occurrences about, so the rescan must run.
void BM_ReplaceCascade(benchmark::State& state) {
  String text((std::string(state.range(0), 'a') + std::string(state.range(0), 'b')).c_str());
  for (auto _ : state) {
    String made = text;
    made.ReplaceAll("ab", "");
    benchmark::DoNotOptimize(made.Text());
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_ReplaceCascade)->Range(1 << 8, 1 << 16)->Complexity();

// A run of texts whose cascade never ends: the cap on replacements holds for
// the whole run, so the texts after the first few cost a single pass each.
void BM_DivergingCascadesInOneRun(benchmark::State& state) {
  for (auto _ : state) {
    RestartReplacementBudget();
    for (int i = 0; i < state.range(0); ++i) {
      String made("xaab");
      made.ReplaceAll("ab", "bbaa");
      benchmark::DoNotOptimize(made.Text());
    }
  }
}
BENCHMARK(BM_DivergingCascadesInOneRun)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_Append(benchmark::State& state) {
  for (auto _ : state) {
    String s;
    for (int i = 0; i < state.range(0); ++i) s += "host1.example, ";
    benchmark::DoNotOptimize(s.Text());
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_Append)->Range(1 << 8, 1 << 16)->Complexity();

// A value line of n entries split and joined back.
std::string ValueLine(int n) {
  std::string line;
  for (int i = 0; i < n; ++i) line += "h" + std::to_string(1000000 + i) + ", ";
  return line;
}

void BM_FromString(benchmark::State& state) {
  std::string line = ValueLine(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    DListtString values;
    values.FromString(line.c_str(), ",\n", " \r\n\t,", 0);
    benchmark::DoNotOptimize(values.Size());
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_FromString)->Range(1 << 8, 1 << 16)->Complexity();

void BM_ToString(benchmark::State& state) {
  DListtString values;
  values.FromString(ValueLine(static_cast<int>(state.range(0))).c_str(), ",\n", " \r\n\t,", 0);
  for (auto _ : state) benchmark::DoNotOptimize(values.ToString(", ", 0).Text());
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_ToString)->Range(1 << 8, 1 << 16)->Complexity();

// Ordered insertion of n texts whose priorities arrive ascending (0), high and
// low alternately (1) or descending (2). The walk from the cursor is linear in
// the distance to the place, so the last two grow with the square of n.
void BM_ToSorted(benchmark::State& state) {
  int n = static_cast<int>(state.range(0));
  int order = static_cast<int>(state.range(1));
  String text("allow host\n");
  for (auto _ : state) {
    DListtPrioritizedString list;
    for (int i = 0; i < n; ++i) {
      int priority = order == 0 ? i : order == 1 ? (i % 2 ? i / 2 : 1000000 - i / 2) : n - i;
      list.ToSorted(new tPrioritizedString(text, priority));
    }
    benchmark::DoNotOptimize(list.Size());
  }
  state.SetComplexityN(n);
}
BENCHMARK(BM_ToSorted)
    ->ArgsProduct({benchmark::CreateRange(1 << 8, 1 << 12, 4), {0, 1, 2}})
    ->Complexity();

// 200 substitutions over one generated line that holds three of the names.
void BM_Substitutions(benchmark::State& state) {
  DListtString names, values;
  for (int i = 0; i < 200; ++i) {
    names.ToTail(new tString(String(("@VLAN" + std::to_string(i) + "@").c_str())));
    values.ToTail(new tString(String(("eth" + std::to_string(i)).c_str())));
  }
  tSubstitutions substitutions(names, values);
  String text("permit @VLAN17@h1 to t2@VLAN151@ dev @VLAN7@\n");
  for (auto _ : state) {
    String line = text;
    substitutions.Apply(line);
    benchmark::DoNotOptimize(line.Text());
  }
}
BENCHMARK(BM_Substitutions);

}  // namespace
