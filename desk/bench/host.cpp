#include "desk/bench/host.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace desk::bench {

namespace {

long asked(const char* question)
{
    std::printf("%s\n", question);
    std::fflush(stdout);
    char answer[64] = "";
    char* end = answer;
    const long number = std::fgets(answer, sizeof answer, stdin) ? std::strtol(answer, &end, 10) : 0;
    if (end == answer) throw std::runtime_error(std::string("nobody answers ") + question);
    return number;
}

}

long privateMemory()
{
    return asked("memory?");
}

long residentMemory()
{
    return asked("resident?");
}

long peakResidentMemory()
{
    return asked("most resident?");
}

long processorTime()
{
    return asked("processor?");
}

}
