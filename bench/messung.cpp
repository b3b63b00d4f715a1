#include "messung.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace
{
double mitte(std::vector<double> werte)
{
    std::sort(werte.begin(), werte.end());
    const size_t halb = werte.size() / 2;
    return werte.size() % 2 == 1 ? werte[halb] : (werte[halb - 1] + werte[halb]) / 2;
}

const char *urteil(double wert, double grenze) { return wert <= grenze ? "ok" : "over"; }
} // namespace

double Messung::dauer(const std::function<void()> &arbeit)
{
    const auto beginn = std::chrono::steady_clock::now();
    arbeit();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - beginn).count();
}

Messung::Paar Messung::paarweise(int runden, const Lauf &unser, const Lauf &blank)
{
    std::vector<double> a;
    std::vector<double> b;
    std::vector<double> verhaeltnisse;
    for (int i = -1; i < runden; ++i) {
        const bool wirZuerst = i % 2 == 0;
        double u = wirZuerst ? unser() : 0;
        const double v = blank();
        u = wirZuerst ? u : unser();
        if (i < 0)
            continue;
        a.push_back(u);
        b.push_back(v);
        verhaeltnisse.push_back(u / v);
    }
    return {.unser = mitte(a), .blank = mitte(b), .verhaeltnis = mitte(verhaeltnisse)};
}

void Messung::drucken(const char *was, const Paar &paar, double grenze)
{
    std::printf("%-46s %10.2f ms %10.2f ms %7.2f  <= %6.2f      %s\n", was, paar.unser * 1000, paar.blank * 1000,
                paar.verhaeltnis, grenze, urteil(paar.verhaeltnis, grenze));
    std::fflush(stdout);
}

void Messung::drucken(const char *was, double wert, const char *einheit, double grenze)
{
    std::printf("%-46s %10.2f %-3s %12s %7s  <= %6.2f %-3s  %s\n", was, wert, einheit, "-", "-", grenze, einheit,
                urteil(wert, grenze));
    std::fflush(stdout);
}

void Messung::mitteilen(const char *was, double wert, const char *einheit)
{
    std::printf("%-46s %10.2f %s\n", was, wert, einheit);
    std::fflush(stdout);
}
