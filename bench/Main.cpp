// The benchmarks. Without an option of its own it is an ordinary Google Benchmark program.
//   qxmix_bench --table        runs everything and prints one table
//   qxmix_bench --curves FILE  runs the growth curves and writes them as CSV

#include "Registration.h"
#include "Report.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <fstream>
#include <iostream>

int main(int argc, char** argv) {
    const bool wantsTable = argc == 2 && std::strcmp(argv[1], "--table") == 0;
    const bool wantsCurves = argc == 3 && std::strcmp(argv[1], "--curves") == 0;
    if (wantsTable || wantsCurves) {
        int none = 1;
        benchmark::Initialize(&none, argv);
        bench::Collation collation;
        if (wantsTable) {
            bench::RegisterTable();
            benchmark::RunSpecifiedBenchmarks(&collation);
            bench::WriteTable(collation, std::cout);
            return std::cout.flush() ? 0 : 1;
        }
        bench::RegisterCurves();
        benchmark::RunSpecifiedBenchmarks(&collation);
        std::ofstream file(argv[2]);
        bench::WriteCurves(collation, file);
        return file.flush() ? 0 : 1;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    bench::RegisterTable();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
