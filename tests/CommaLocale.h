#pragma once

#include <clocale>
#include <locale>
#include <string>

namespace korvel {

/// While it lives, numbers of the C library (where such a locale is installed) and of streams have
/// a decimal comma, as a window toolkit would set them for many users.
class CommaLocale {
 public:
    CommaLocale() : streams_(std::locale::global(std::locale(std::locale(), new CommaNumbers))) {
        for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE"})
            if (std::setlocale(LC_ALL, name) != nullptr) break;
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    ~CommaLocale() {
        std::locale::global(streams_);
        std::setlocale(LC_ALL, "C");
    }

 private:
    struct CommaNumbers : std::numpunct<char> {
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
        char do_decimal_point() const override { return ','; }
    };

    std::locale streams_;
};

}  // namespace korvel
