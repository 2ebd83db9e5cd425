// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// fuzz_replay FOLDER TARGET CHANGES: tries the kept inputs of a target (FOLDER/corpus/TARGET), and as many changes of
// each. The changes follow from the input's place and their number alone, so that every run and every machine tries the
// same. Needs no compiler with a fuzzer in it.
#include "Targets.h"
#include "jobs/WorkerThreads.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

// What is tried now, for the message when it ends the program.
std::string tried;

extern "C" void sayWhatWasTried(int signal)
{
    // Nothing else may be called here; what becomes of the count does not matter any more.
    [[maybe_unused]] const ssize_t count = ::write(STDERR_FILENO, tried.data(), tried.size());
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    FUZZ_CHECK(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

// The words of a dictionary in libFuzzer's form: NAME="word", with \" \\ and \xAB.
std::vector<QByteArray> wordsOf(const QString& path)
{
    std::vector<QByteArray> words;
    if (!QFile::exists(path))
        return words;
    for (const QByteArray& line : contentsOf(path).split('\n')) {
        const qsizetype first = line.indexOf('"');
        const qsizetype last = line.lastIndexOf('"');
        if (line.startsWith('#') || first < 0 || last <= first)
            continue;
        QByteArray word;
        for (qsizetype i = first + 1; i < last; ++i) {
            if (line[i] != '\\') {
                word += line[i];
            } else if (line.mid(i + 1, 1) == "x") {
                word += QByteArray::fromHex(line.mid(i + 2, 2));
                i += 3;
            } else {
                word += line[++i];
            }
        }
        words.push_back(word);
    }
    return words;
}

class Changer
{
public:
    Changer(std::size_t file, int number, const std::vector<QByteArray>& words)
        : _random(static_cast<std::mt19937::result_type>(file * 100'003 + static_cast<std::size_t>(number)))
        , _words(words)
    {}

    QByteArray changed(QByteArray bytes)
    {
        const unsigned count = 1 + below(4);
        for (unsigned i = 0; i < count; ++i)
            change(bytes);
        return bytes;
    }

private:
    // The distributions of the standard library differ between machines; the remainder does not.
    unsigned below(qsizetype limit)
    {
        return limit > 0 ? static_cast<unsigned>(_random() % static_cast<unsigned>(limit)) : 0;
    }

    void change(QByteArray& bytes)
    {
        const qsizetype at = below(bytes.size());
        const qsizetype count = 1 + below(std::min<qsizetype>(64, bytes.size() - at));
        switch (below(7)) {
        case 0:
            if (!bytes.isEmpty())
                bytes[at] = static_cast<char>(static_cast<unsigned char>(bytes[at]) ^ (1U << below(8)));
            break;
        case 1:
            if (!bytes.isEmpty())
                bytes[at] = static_cast<char>(below(256));
            break;
        case 2:
            bytes.remove(at, count);
            break;
        case 3:
            bytes.insert(at, bytes.mid(below(bytes.size()), count));
            break;
        case 4:
            bytes.truncate(at);
            break;
        case 5:
            bytes.replace(at, count, kNumbers[below(std::size(kNumbers))]);
            break;
        default:
            if (!_words.empty())
                bytes.insert(at, _words[below(static_cast<qsizetype>(_words.size()))]);
        }
    }

    static constexpr const char* kNumbers[] = {"0",   "-1",     "1e308", "-1e-308",    "nan",
                                               "inf", "1e9999", "65536", "4294967296", "99999999999999999999"};

    std::mt19937 _random;
    const std::vector<QByteArray>& _words;
};

int replay(const QString& folder, const FuzzTarget& target, int changes)
{
    const QString name = QString::fromLatin1(target.name);
    const QDir corpus(folder + QStringLiteral("/corpus/") + name);
    const std::vector<QByteArray> words = wordsOf(folder + QStringLiteral("/dictionaries/") + name + ".dict");
    const QStringList files = corpus.entryList(QDir::Files, QDir::Name);
    if (files.isEmpty()) {
        std::fprintf(stderr, "there are no inputs in %s\n", qPrintable(corpus.path()));
        return 1;
    }
    int inputs = 0;
    for (qsizetype i = 0; i < files.size(); ++i) {
        const QByteArray kept = contentsOf(corpus.filePath(files[i]));
        for (int number = 0; number <= changes; ++number, ++inputs) {
            tried = "while trying " + files[i].toStdString() + ", change " + std::to_string(number) + "\n";
            target.run(number == 0 ? kept : Changer(static_cast<std::size_t>(i), number, words).changed(kept));
        }
    }
    std::printf("%s: %d inputs\n", target.name, inputs);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4 || !findFuzzTarget(argv[2])) {
        std::fputs("usage: fuzz_replay FOLDER TARGET CHANGES; the targets are", stderr);
        for (const FuzzTarget& target : fuzzTargets())
            std::fprintf(stderr, " %s", target.name);
        std::fputs("\n", stderr);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const FuzzTarget& target = *findFuzzTarget(argv[2]);
    const int changes = std::atoi(argv[3]);
    prepareFuzzing(argc, argv);
    // They end before the process does.
    const WorkerThreads threads;
    for (const int signal : {SIGABRT, SIGSEGV, SIGFPE, SIGBUS, SIGILL})
        std::signal(signal, sayWhatWasTried);
    return replay(folder, target, changes);
}
