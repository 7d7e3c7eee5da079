// What the bench tells, line by line, and which targets were met.
#pragma once

#include <string>
#include <vector>

namespace desk::bench {

enum class Known { measured, reckoned };

struct Cost {
    std::wstring work;
    const wchar_t* client;
    int contacts;
    double roundTrips;
    double milliseconds;
    Known how = Known::measured;
};

class Report {
public:
    void section(const std::wstring& title);

    // What happens now, or a figure without a target.
    void remark(const std::wstring& text);

    // A figure that has a target.
    void target(bool met, const std::wstring& figure);

    // Figures for the tables and pictures of docs/performance.md: told to the log
    // only, as a line of their parts with tabs between them.
    void cost(const Cost& cost);
    void needed(const std::wstring& work, unsigned long roundTrips);
    void figure(const std::vector<std::wstring>& parts);

    // All targets once more; how many were missed.
    int conclude();

private:
    void print(const std::wstring& line);

    std::wstring targets_; // a line each
    int missed_ = 0;
};

// Right-aligned in a column of that many characters.
std::wstring aligned(const std::wstring& text, std::size_t width);

// "0.124": thousandths are as exact as anything here.
std::wstring decimal(double number);

// Milliseconds as "12.3 s".
std::wstring seconds(double milliseconds);

}
