// Parsing and printing a million typical order-ticket numbers with Json::Number, against
// strtod + snprintf, std::from_chars + std::to_chars, and QString::toDouble +
// QString::number, in one run. Prints nanoseconds per operation and the ratios.
#include "foundation/json_number.h"

#include <QString>
#include <QVector>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int kCount = 1000000;
constexpr int kRounds = 9;

struct Sample
{
    std::string text;
    std::int64_t mantissa;
    int digits;
    double value;
};

// Prices with two to four decimals, small fractions, and whole quantities.
std::vector<Sample> MakeSamples()
{
    std::mt19937_64 random(1);
    std::vector<Sample> samples;
    samples.reserve(kCount);
    for (int i = 0; i < kCount; ++i) {
        std::int64_t mantissa = 0;
        int digits = 0;
        switch (random() % 6) {
        case 0: mantissa = std::int64_t(random() % 100000000); digits = 3; break; // 12345.678
        case 1: mantissa = std::int64_t(random() % 100000); digits = 2; break;    // 123.45
        case 2: mantissa = -std::int64_t(random() % 1000); digits = 3; break;     // -0.005
        case 3: mantissa = std::int64_t(1 + random() % 99); digits = 2; break;    // 0.01
        case 4: mantissa = std::int64_t(100 * (1 + random() % 1000)); digits = 0; break; // lots
        default: mantissa = std::int64_t(random() % 10000000); digits = 4; break; // 123.4567
        }
        Json::Number const n(mantissa, digits);
        samples.push_back({std::string(n.ToString(false)), mantissa, digits, n.ToDouble()});
    }
    return samples;
}

// CPU time of this thread: the machine is shared, and time spent descheduled is not ours.
double ThreadNanoseconds()
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e9 + double(t.tv_nsec);
}

// Each job runs once per round, all jobs in turn, and keeps its best round.
struct Job
{
    char const *name;
    std::function<void()> run;
    double best = 1e300;
};

void RunInTurn(std::vector<Job> &jobs)
{
    for (int round = 0; round < kRounds; ++round) {
        for (Job &job : jobs) {
            double const start = ThreadNanoseconds();
            job.run();
            job.best = std::min(job.best, (ThreadNanoseconds() - start) / kCount);
        }
    }
}

volatile std::uint64_t g_sink;

void Report(char const *what, double ours, double other)
{
    std::printf("  %-34s %7.1f ns/op   ours is %5.2fx as fast\n", what, other, other / ours);
}

} // namespace

int main()
{
    std::vector<Sample> const samples = MakeSamples();
    QVector<QString> qtexts;
    qtexts.reserve(kCount);
    for (Sample const &s : samples)
        qtexts.push_back(QString::fromLatin1(s.text.c_str()));

    // Parse.
    std::vector<Job> parse;
    parse.push_back({"Json::Number(text)", [&] {
        std::uint64_t sum = 0;
        for (Sample const &s : samples) {
            Json::Number const n(s.text.c_str());
            sum += std::uint64_t(n.GetMantissa()) + std::uint64_t(n.GetDigits());
        }
        g_sink = sum;
    }});
    parse.push_back({"strtod", [&] {
        double sum = 0;
        for (Sample const &s : samples)
            sum += std::strtod(s.text.c_str(), nullptr);
        g_sink = std::uint64_t(sum);
    }});
    parse.push_back({"std::from_chars", [&] {
        double sum = 0;
        for (Sample const &s : samples) {
            double v = 0;
            std::from_chars(s.text.data(), s.text.data() + s.text.size(), v);
            sum += v;
        }
        g_sink = std::uint64_t(sum);
    }});
    parse.push_back({"QString::toDouble", [&] {
        double sum = 0;
        for (QString const &s : qtexts)
            sum += s.toDouble();
        g_sink = std::uint64_t(sum);
    }});

    // Print.
    std::vector<Job> print;
    print.push_back({"Json::Number::ToString", [&] {
        std::uint64_t sum = 0;
        for (Sample const &s : samples) {
            Json::NumberText const text = Json::Number(s.mantissa, s.digits).ToString(false);
            sum += text.size() + std::uint8_t(text.c_str()[0]);
        }
        g_sink = sum;
    }});
    print.push_back({"snprintf(\"%.*f\")", [&] {
        std::uint64_t sum = 0;
        char buffer[64];
        for (Sample const &s : samples) {
            int const n = std::snprintf(buffer, sizeof(buffer), "%.*f", s.digits, s.value);
            sum += std::uint64_t(n) + std::uint8_t(buffer[0]);
        }
        g_sink = sum;
    }});
    print.push_back({"std::to_chars(fixed, digits)", [&] {
        std::uint64_t sum = 0;
        char buffer[64];
        for (Sample const &s : samples) {
            auto const r = std::to_chars(buffer, buffer + sizeof(buffer), s.value, std::chars_format::fixed, s.digits);
            sum += std::uint64_t(r.ptr - buffer) + std::uint8_t(buffer[0]);
        }
        g_sink = sum;
    }});
    print.push_back({"QString::number(v, 'f', digits)", [&] {
        std::uint64_t sum = 0;
        for (Sample const &s : samples) {
            QString const text = QString::number(s.value, 'f', s.digits);
            sum += std::uint64_t(text.size()) + text.at(0).unicode();
        }
        g_sink = sum;
    }});

    RunInTurn(parse);
    RunInTurn(print);

    std::printf("numbers_bench: %d texts such as \"%s\", \"%s\", \"%s\"; thread CPU time, best of %d rounds\n",
                kCount, samples[0].text.c_str(), samples[1].text.c_str(), samples[2].text.c_str(), kRounds);
    for (auto const *jobs : {&parse, &print}) {
        std::printf("%s\n  %-34s %7.1f ns/op\n", jobs == &parse ? "parse" : "print", jobs->front().name,
                    jobs->front().best);
        for (std::size_t i = 1; i < jobs->size(); ++i)
            Report((*jobs)[i].name, jobs->front().best, (*jobs)[i].best);
    }
    return 0;
}
