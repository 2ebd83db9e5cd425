// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// bench_vallorin [NAME] [--json FILE] [--plot FILE] [--benchmark_...]
//
// Measures, prints the table, and on request writes it as JSON and as an SVG picture. NAME selects benchmarks as
// --benchmark_filter does ("blur", "command/4K"), and memory cases too. The other options of Google Benchmark set the
// repetitions. Everything runs on one thread except the cases whose names say otherwise.
#include "Groups.h"
#include "Plot.h"
#include "Report.h"

#include <opencv2/core.hpp>
#include <tbb/global_control.h>

#include <fstream>
#include <iostream>
#include <optional>
#include <regex>

namespace {

struct Words
{
    std::optional<std::string> jsonFile;
    std::optional<std::string> plotFile;
    bool listOnly = false;
    std::vector<std::string> forBenchmark;
};

// The user's options come later and override these.
const std::vector<std::string> kDefaults = {"--benchmark_repetitions=5", "--benchmark_min_time=0.02",
                                            "--benchmark_enable_random_interleaving=true"};

std::optional<Words> parse(int argc, char** argv)
{
    Words words;
    words.forBenchmark.emplace_back(argv[0]);
    words.forBenchmark.insert(words.forBenchmark.end(), kDefaults.begin(), kDefaults.end());
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--json" || word == "--plot") {
            if (i + 1 == argc) {
                std::cerr << "bench_vallorin: " << word << " needs the name of a file after it\n";
                return std::nullopt;
            }
            (word == "--json" ? words.jsonFile : words.plotFile) = argv[++i];
            continue;
        }
        if (!word.starts_with('-')) {
            words.forBenchmark.push_back("--benchmark_filter=" + word);
            continue;
        }
        words.listOnly = words.listOnly || word.starts_with("--benchmark_list_tests");
        words.forBenchmark.push_back(word);
    }
    return words;
}

// False when an option is unknown.
bool initialize(Words& words)
{
    std::vector<char*> pointers;
    for (std::string& word : words.forBenchmark)
        pointers.push_back(word.data());
    int count = static_cast<int>(pointers.size());
    pointers.push_back(nullptr);
    benchmark::Initialize(&count, pointers.data());
    return !benchmark::ReportUnrecognizedArguments(count, pointers.data());
}

// Google Benchmark's filter, applied before pictures are made: a leading minus inverts it.
class Filter
{
public:
    explicit Filter(std::string text)
    {
        _turned = text.starts_with('-');
        if (_turned)
            text.erase(0, 1);
        if (!text.empty() && text != "all")
            _pattern = std::regex(text, std::regex::extended);
    }

    bool operator()(const std::string& name) const
    {
        return !_pattern || std::regex_search(name, *_pattern) != _turned;
    }

private:
    std::optional<std::regex> _pattern;
    bool _turned = false;
};

void runGroup(const Group& group, const Filter& accepts, TimeCollector& times)
{
    bool isEmpty = true;
    for (const Case& one : group.cases) {
        if (!accepts(one.name))
            continue;
        benchmark::RegisterBenchmark(one.name.c_str(), one.run)->UseManualTime();
        isEmpty = false;
    }
    if (!isEmpty)
        benchmark::RunSpecifiedBenchmarks(&times, "all");
    benchmark::ClearRegisteredBenchmarks();
}

void runAll(const Filter& accepts, Findings& findings)
{
    for (const GroupMakers& makers :
         {wholeGroups(), blurGroups(), stageGroups(), scalingGroups(), commandGroups(), choiceGroups()})
        for (const auto& makeGroup : makers) {
            const Group group = makeGroup();
            std::cerr << "measuring " << group.cases.front().name << " and similar cases\n";
            TimeCollector times;
            runGroup(group, accepts, times);
            findings.add(group.figures, times);
        }
}

// Opens the file for results, if one is named; before the measuring, which takes long.
bool open(const std::optional<std::string>& name, std::ofstream& file)
{
    if (name)
        file.open(*name);
    if (!file)
        std::cerr << "bench_vallorin: cannot write " << *name << '\n';
    return file.good();
}

int run(Words& words)
{
    if (!initialize(words))
        return 2;
    std::ofstream json;
    std::ofstream plot;
    if (!open(words.jsonFile, json) || !open(words.plotFile, plot))
        return 1;
    const Filter accepts(benchmark::GetBenchmarkFilter());
    cv::setNumThreads(1);
    Findings findings;
    for (const std::string& name : memoryCaseNames())
        if (accepts(name)) {
            if (words.listOnly)
                std::cout << name << '\n';
            else
                findings.memory.push_back(measureMemoryCase(name));
        }
    // Two, so that arenas of two threads get two on every machine; all others have one thread.
    const tbb::global_control threads(tbb::global_control::max_allowed_parallelism, 2);
    if (!words.listOnly && accepts("agreement"))
        findings.agreements = comparePictures();
    runAll(accepts, findings);
    if (words.listOnly)
        return 0;
    writeTable(findings, std::cout);
    if (words.jsonFile)
        writeJson(findings, json);
    if (words.plotFile)
        writePlots(findings, plot);
    return json.good() && plot.good() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    std::optional<Words> words = parse(argc, argv);
    if (!words)
        return 2;
    try {
        return run(*words);
    } catch (const std::regex_error&) {
        std::cerr << "bench_vallorin: the filter is not a regular expression\n";
        return 2;
    }
}
