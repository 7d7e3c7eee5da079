#include "desk/bench/map.h"

#include "automation/object.h"
#include "desk/bench/map_file.h"

#include <algorithm>
#include <stdexcept>

namespace desk::bench {

namespace {

using automation::Object;
using automation::Value;

constexpr int few = 1'000;
constexpr int many = 200'000;
constexpr int lookUps = 500; // in a batch
constexpr int batches = 8;   // the quickest counts: the others were disturbed
constexpr int insertions = 500;

double now() // milliseconds
{
    LARGE_INTEGER count, frequency;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

template <class Work>
double timeOf(Work work)
{
    const double start = now();
    work();
    return now() - start;
}

std::wstring lookedUp(const Object& map, const std::wstring& id)
{
    Value entryId(std::wstring(1024, L'\0'));
    Value length(std::int32_t{1024});
    const Value found = map.get(L"ConvertIdOrvel", {id, byRef(entryId), byRef(length), std::int32_t{0}});
    return found.int32() ? entryId.text() : L"";
}

struct MapTimes { // milliseconds
    double opening = 0;
    double lookUp = 0;
    double miss = 0;
    double insertion = 0;
};

// A batch spread over all records, each answer checked.
void lookUpBatch(const Object& map, int records, int batch)
{
    for (int i = 0; i < lookUps; ++i) {
        const int n = (batch + i * (records / lookUps)) % records;
        if (lookedUp(map, L"3." + std::to_wstring(n)) != mappedTo(n))
            throw std::runtime_error("the identifier map gives a wrong answer");
    }
}

void missBatch(const Object& map)
{
    for (int i = 0; i < lookUps; ++i)
        if (!lookedUp(map, L"4." + std::to_wstring(i)).empty())
            throw std::runtime_error("the identifier map knows what it cannot know");
}

MapTimes timesWith(const Object& map, int records)
{
    map.call(L"StopOrvelConvertId"); // lets go of the file; the next call opens it again
    const std::wstring file = player::Desk::identifierMapFile();
    player::makeFolder(file.substr(0, file.rfind(L'\\')));
    player::writeFile(file, mapFile(records));
    MapTimes times;
    times.opening = timeOf([&] { lookedUp(map, L"3.0"); });
    times.lookUp = times.miss = 1e9;
    for (int batch = 0; batch < batches; ++batch) {
        times.lookUp = std::min(times.lookUp, timeOf([&] { lookUpBatch(map, records, batch); }) / lookUps);
        times.miss = std::min(times.miss, timeOf([&] { missBatch(map); }) / lookUps);
    }
    times.insertion =
        timeOf([&] {
            for (int n = 0; n < insertions; ++n)
                map.call(L"InsertId", {mappedTo(n), L"5." + std::to_wstring(n), std::int32_t{0}, std::int32_t{1}});
        }) /
        insertions;
    return times;
}

void reportTimes(Report& report, int records, const MapTimes& times)
{
    const auto cell = [](double milliseconds) { return aligned(decimal(milliseconds) + L" ms", 14); };
    report.remark(aligned(std::to_wstring(records), 8) + cell(times.opening) + cell(times.lookUp) + cell(times.miss) +
                  cell(times.insertion));
}

}

void measureMap(player::Desk&, Report& report)
{
    report.section(L"The identifier map: every answer is one round trip, whatever it holds");
    const player::Process registration(std::wstring(player::Desk::programFolder) + L"\\PavexConvId.exe", L"/RegServer");
    if (!registration.ended(20'000)) throw std::runtime_error("PavexConvId.exe does not register");
    const Object map = Object::create(L"PavexConvId.OrvelConvertId");
    const MapTimes small = timesWith(map, few);
    const MapTimes large = timesWith(map, many);
    report.remark(L" records       opening       look-up   unknown one     insertion");
    reportTimes(report, few, small);
    reportTimes(report, many, large);
    report.target(large.opening < 1'000,
                  L"opening a map of 200,000 records: " + decimal(large.opening / 1000) + L" s; less than 1.000");
    const double growth = std::max(large.lookUp / small.lookUp, large.miss / small.miss);
    report.target(growth <= 1.2, L"a look-up among 200,000 records takes " + decimal(growth) +
                                     L" of the time of one among 1,000; at most 1.200");
}

}
