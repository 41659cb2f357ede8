// The program of the row store's benchmarks: filling and sorting.
#include "figures.h"

namespace {

void Report() {
  using goods::Counter;
  using goods::ProcessorTime;
  using goods::Tell;
  Tell({"filling a row store, 1,000,000 rows of 19 columns", Counter("FillRowStore", "store_ms"),
        "plain vectors", Counter("FillRowStore", "plain_ms"), 1.5});
  Tell({"sorting those rows by whole numbers", ProcessorTime("SortQuery/Integer"),
        "std::stable_sort of the numbers", ProcessorTime("StableSortInteger")});
  Tell({"by decimals", ProcessorTime("SortQuery/Decimal"), "std::stable_sort of the numbers",
        ProcessorTime("StableSortDecimal")});
  Tell({"by texts that repeat", ProcessorTime("SortQuery/RepeatingText"), "std::stable_sort of the texts",
        ProcessorTime("StableSortRepeatingText")});
}

}  // namespace

int main(int argc, char** argv) { return goods::RunBenchmarks(argc, argv, Report); }
