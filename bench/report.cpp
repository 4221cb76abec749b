// The benchmarks' main. `--report=headless`, `--report=window` or
// `--report=soak` runs that group's benchmarks and prints, instead of the
// usual listing, one Markdown table row per figure beside its goal
// (bench/report.sh runs the three groups and adds the head of the table).
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace {

enum class Goal { None, Frame, Crawl, PacedGap, WorstGap, Rate, Zero };

struct Row {
  const char* group;
  const char* label;
  // The figure: the worst of these benchmarks (function name, what it shows);
  // a counter of theirs, or their time per iteration when counter is "".
  std::vector<std::pair<const char*, const char*>> benches;
  const char* counter;
  const char* unit;
  Goal goal;
};

const std::vector<Row>& Rows() {
  static const std::vector<Row> rows = {
      {"headless", "Load work: the whole catalogue, every picture and sound made", {{"BM_LoadCatalogue", ""}}, "", "ms",
       Goal::None},
      {"headless", "First-menu time, headless: start-up, loading screens, load work, introduction",
       {{"BM_StartUpToFirstMenuFrame", ""}}, "", "ms", Goal::None},
      {"headless", "Menu frame: options page, 500 click sparks alive", {{"BM_MenuFrameWithSparks", ""}}, "", "ms",
       Goal::Frame},
      {"headless", "Play pass on a busy Bonus field (median)", {{"BM_PlayPassOnABusyBonusField", ""}},
       "pass_median_ms", "ms", Goal::Frame},
      {"headless", "  its same-run memory copy of the bytes it writes (median)",
       {{"BM_PlayPassOnABusyBonusField", ""}}, "copy_median_ms", "ms", Goal::None},
      {"headless", "Heaviest bonus-effect frame",
       {{"BM_BombLand", "bomb fireball"},
        {"BM_ColumnClear", "column clear"},
        {"BM_ColumnFill", "column fill"},
        {"BM_SingleClear", "line clear"},
        {"BM_SingleFallRain", "single-fall rain"},
        {"BM_EarthquakeSwell", "earthquake swell"}},
       "worst_frame_ms", "ms", Goal::Frame},
      {"headless", "Worst line-check frame: four rows and a level-up", {{"BM_FourRowsWithLevelUp", ""}},
       "worst_frame_ms", "ms", Goal::Frame},
      {"headless", "Worst detonation frame: Type C bomb at height 15", {{"BM_BombDetonation", ""}}, "worst_frame_ms",
       "ms", Goal::Frame},
      {"headless", "Worst detonation frame: Wickory, four charges and a large rock", {{"BM_SuccessWorstFrame", ""}},
       "worst_frame_ms", "ms", Goal::Frame},
      {"headless", "Wickory crawl frame (five sweeps and the frame), packed field",
       {{"BM_CrawlFrameChargeGrid", "charge grid"}, {"BM_CrawlFrameSolidFuse", "solid fuse"}}, "", "ms", Goal::Crawl},
      {"headless", "Peak memory (max RSS), headless run", {{"BM_PeakMemoryHeadless", ""}}, "peak_rss_mib", "MiB",
       Goal::None},
      {"window", "Window pacing, 600 frames of play: median gap", {{"BM_WindowPacing", ""}}, "median_gap_ms", "ms",
       Goal::PacedGap},
      {"window", "Window pacing: worst gap", {{"BM_WindowPacing", ""}}, "worst_gap_ms", "ms", Goal::WorstGap},
      {"window", "Window pacing: gaps over two refreshes (33.3 ms)", {{"BM_WindowPacing", ""}},
       "gaps_over_two_refreshes", "of 600", Goal::Zero},
      {"window", "Window pacing: frames shown per second", {{"BM_WindowPacing", ""}}, "frames_per_second", "/s",
       Goal::Rate},
      {"window", "Window: CPU time of the program per frame (all its threads)", {{"BM_WindowPacing", ""}},
       "cpu_per_frame_ms", "ms", Goal::Frame},
      {"window", "Peak memory (max RSS), the same run in a window", {{"BM_PeakMemoryWindow", ""}}, "peak_rss_mib",
       "MiB", Goal::None},
  };
  return rows;
}

constexpr double kFrameMs = 1000.0 / 60.0;

std::string GoalText(Goal g) {
  switch (g) {
    case Goal::None: return "no goal";
    case Goal::Frame: return "16.7 ms (a frame at 60 Hz)";
    case Goal::Crawl: return "2 ms";
    case Goal::PacedGap: return "16.7 ms (60 Hz, within 0.5 ms)";
    case Goal::WorstGap: return "33.3 ms (no refresh missed)";
    case Goal::Rate: return "60 (within 1 %)";
    case Goal::Zero: return "0";
  }
  return "";
}

std::string Met(Goal g, double v) {
  switch (g) {
    case Goal::None: return "";
    case Goal::Frame: return v <= kFrameMs ? "yes" : "NO";
    case Goal::Crawl: return v <= 2.0 ? "yes" : "NO";
    case Goal::PacedGap: return std::fabs(v - kFrameMs) <= 0.5 ? "yes" : "NO";
    case Goal::WorstGap: return v <= 2 * kFrameMs ? "yes" : "NO";
    case Goal::Rate: return v >= 59.4 && v <= 60.6 ? "yes" : "NO";
    case Goal::Zero: return v == 0 ? "yes" : "NO";
  }
  return "";
}

std::string Figure(double v, const char* unit) {
  char text[64];
  std::snprintf(text, sizeof text, v == std::floor(v) ? "%.0f" : v < 10 ? "%.3f" : v < 100 ? "%.2f" : "%.1f", v);
  return *unit ? std::string(text) + " " + unit : text;
}

class TableReporter : public benchmark::BenchmarkReporter {
 public:
  explicit TableReporter(std::string group) : group_(std::move(group)) {}

  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      runs_[run.run_name.function_name] = run;
      std::fprintf(stderr, "measured %s\n", run.run_name.function_name.c_str());
    }
  }

  void Finalize() override {
    if (group_ == "soak") return FinalizeSoak();
    for (const Row& row : Rows()) {
      if (group_ != row.group) continue;
      bool any = false;
      double worst = 0;
      std::string which, skipped;
      for (const auto& [name, shows] : row.benches) {
        auto it = runs_.find(name);
        if (it == runs_.end()) continue;
        const Run& run = it->second;
        if (run.error_occurred) {
          skipped = "skipped: " + run.error_message;
          continue;
        }
        double v = Value(run, row.counter);
        if (!any || v > worst) {
          worst = v;
          which = shows;
        }
        any = true;
      }
      std::string figure = any ? Figure(worst, row.unit) : skipped.empty() ? "not measured" : skipped;
      if (any && !which.empty()) figure += " (" + which + ")";
      Print(row.label, figure, GoalText(row.goal), any ? Met(row.goal, worst) : "");
    }
  }

 private:
  static double Value(const Run& run, const char* counter) {
    if (*counter) {
      auto c = run.counters.find(counter);
      return c == run.counters.end() ? 0 : c->second.value;
    }
    return run.GetAdjustedRealTime() * 1000.0 / benchmark::GetTimeUnitMultiplier(run.time_unit);
  }

  static void Print(const std::string& label, const std::string& figure, const std::string& goal,
                    const std::string& met) {
    std::printf("| %s | %s | %s | %s |\n", label.c_str(), figure.c_str(), goal.c_str(), met.c_str());
  }

  // The soak's benchmark: the resident size of one long run, by quarters.
  void FinalizeSoak() {
    bool any = false;
    for (const auto& [name, run] : runs_) {
      if (run.error_occurred) {
        Print("Soak memory growth (" + name + ")", "skipped: " + run.error_message, "no goal", "");
        any = true;
        continue;
      }
      auto counter = [&](const char* key) {
        auto it = run.counters.find(key);
        return it == run.counters.end() ? 0.0 : it->second.value;
      };
      const std::string frames = std::to_string(static_cast<long long>(counter("frames")));
      char figure[160];
      std::snprintf(figure, sizeof figure, "%+.0f KiB (%.0f to %.0f KiB), %.1f KiB per 1000 frames", counter("growth_KiB"),
                    counter("rss_q1_KiB"), counter("rss_q4_KiB"), counter("KiB_per_1000_frames"));
      Print("Soak memory growth, one run of " + frames + " frames, end of first to end of last quarter", figure,
            "no goal", "");
      any = true;
    }
    if (!any) Print("Soak memory growth, first to last quarter", "not measured", "no goal", "");
  }

  std::string group_;
  std::map<std::string, Run> runs_;
};

// The group's benchmarks as a filter; the soak's are whatever names "Soak".
std::string Filter(const std::string& group) {
  if (group == "soak") return "Soak";
  std::string names;
  for (const Row& row : Rows())
    if (group == row.group)
      for (const auto& bench : row.benches) names += (names.empty() ? "" : "|") + std::string(bench.first);
  return "^(" + names + ")(/|$)";
}

}  // namespace

int main(int argc, char** argv) {
  std::string group;
  std::vector<char*> args;
  for (int i = 0; i < argc; ++i) {
    if (std::strncmp(argv[i], "--report=", 9) == 0)
      group = argv[i] + 9;
    else
      args.push_back(argv[i]);
  }
  if (!group.empty() && group != "headless" && group != "window" && group != "soak") {
    std::fprintf(stderr, "vorrel_bench: --report=%s: the groups are headless, window and soak\n", group.c_str());
    return 2;
  }
  std::string filter = "--benchmark_filter=" + Filter(group);
  if (!group.empty()) args.push_back(filter.data());
  int count = static_cast<int>(args.size());
  args.push_back(nullptr);
  benchmark::Initialize(&count, args.data());
  if (benchmark::ReportUnrecognizedArguments(count, args.data())) return 1;
  if (group.empty()) {
    benchmark::RunSpecifiedBenchmarks();
  } else {
    TableReporter table(group);
    if (benchmark::RunSpecifiedBenchmarks(&table) == 0) table.Finalize();  // nothing ran: say so
  }
  benchmark::Shutdown();
  return 0;
}
