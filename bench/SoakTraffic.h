// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "platform/Text.h"

namespace halvern::soak {

/// What is heard in a simulated year: 20 packets a minute, one minute in sixty 200 more. The stations of a day are
/// others than those of a month ago. The same seed says the same.
class Traffic {
public:
    explicit Traffic(std::uint64_t seed) : random(seed) {}

    /// Lines of recorded traffic are every fifth packet from now on; what asks for an answer is left out.
    void TakeRecorded(const std::string& file)
    {
        std::ifstream in(file, std::ios::binary);
        for (std::string line; std::getline(in, line);)
            if (!Holds(line, ":?") && !Holds(line, "Q0OWN")) recorded.push_back(line);
    }
    /// 0 to `below` - 1
    int Pick(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }
    bool OneIn(int many) { return Pick(many) == 0; }

    /// How many packets come in each second of the next minute.
    std::vector<int> Minute()
    {
        std::vector<int> seconds(60);
        const int steady = std::poisson_distribution<int>(20 - 200.0 / 60)(random);
        for (int i = steady + (OneIn(60) ? 200 : 0); i > 0; --i) ++seconds[static_cast<std::size_t>(Pick(60))];
        return seconds;
    }

    std::string Caller(int day) { return Call(day * 40 + Pick(2000)); }

    /// "SOURCE>DEST,PATH:INFO" as it is on the air on that day.
    std::string Line(int day, bool radio)
    {
        if (!recorded.empty() && OneIn(5))
            return recorded[static_cast<std::size_t>(Pick(static_cast<int>(recorded.size())))];
        const auto source = Caller(day);
        const char* const paths[] = {",WIDE1-1,WIDE2-1", ",Q1DIG*,WIDE2-1", ",WIDE2-2", "", ",Q0OWN*,WIDE2-1"};
        const std::string path = radio ? paths[Pick(5)] : ",TCPIP*,qAC,SERVER";
        return Information(source, day, path);
    }

private:
    static std::string Call(int number)
    {
        std::string call = "Q";
        for (int i = 0; i < 4; ++i, number /= 26) call += static_cast<char>('A' + number % 26);
        return call;
    }
    std::string Digits(int below, int width) { return ZeroFilled(Pick(below), width); }
    std::string Place(const std::string& call)
    {
        const auto home = std::hash<std::string>{}(call);
        return ZeroFilled(static_cast<int>(home % 80), 2) + Digits(60, 2) + "." + Digits(100, 2) + "N/" +
               ZeroFilled(static_cast<int>(home / 97 % 180), 3) + Digits(60, 2) + "." + Digits(100, 2) + "W";
    }
    std::string Weather()
    {
        return Digits(360, 3) + "/" + Digits(80, 3) + "g" + Digits(99, 3) + "t" + Digits(110, 3) + "r000p" +
               Digits(99, 3) + "P...h" + Digits(99, 2) + "b" + ZeroFilled(9700 + Pick(800), 5);
    }
    std::string Noise()
    {
        std::string bytes;
        for (int i = 1 + Pick(60); i > 0; --i) bytes += static_cast<char>(1 + Pick(255));
        return bytes;
    }

    std::string Information(const std::string& source, int day, const std::string& path)
    {
        const auto plain = [&](const std::string& info) { return source + ">APRS" + path + ":" + info; };
        const int kind = Pick(100);
        if (kind < 40)
            return plain((OneIn(2) ? "!" : "=") + Place(source) + ">" + Digits(360, 3) + "/" + Digits(99, 3) +
                         " on the road");
        if (kind < 55) return source + ">S32U6T" + path + ":`(_" + Noise().substr(0, 1) + "n\"Oj/]on the road";
        if (kind < 63)
            return plain("@" + Digits(28, 2) + Digits(24, 2) + Digits(60, 2) + "z" + Place(source) + "_" + Weather());
        if (kind < 66)
            return plain("_" + Digits(12, 2) + Digits(28, 2) + Digits(24, 2) + Digits(60, 2) + "c" + Digits(360, 3) +
                         "s004g005t077r000p000P000h50b09900");
        if (kind < 73)
            return plain(";" + Padded("OBJ" + std::to_string(Pick(300)), 9) + (OneIn(9) ? "_" : "*") + Digits(28, 2) +
                         "2345z" + Place(source) + ">");
        if (kind < 79) return plain(">on the air " + Digits(1000, 3));
        if (kind < 86) return plain(":" + Padded(Caller(day), 9) + ":words " + Digits(10000, 4) + "{" + Digits(100, 2));
        if (kind < 87) return plain(":Q0OWN    :words " + Digits(10000, 4) + "{" + Digits(100, 2));
        if (kind < 89) return plain(":BLN" + Digits(10, 1) + "     :meeting " + Digits(1000, 3));
        if (kind < 92) return plain("T#" + Digits(1000, 3) + ",199,000,255,073,123,01101001");
        if (kind < 94)
            return plain("$GPRMC,210000,A," + Digits(80, 2) + Digits(60, 2) + ".14,N,073" + Digits(60, 2) +
                         ".41,W,12.5,088.4,010100,,*7C");
        if (kind < 97) return plain("}" + Caller(day) + ">APRS,TCPIP,Q2GATE*:!" + Place(source) + "-");
        if (kind < 98) return plain("Resource " + Digits(100, 2));
        return plain(Noise());
    }

    std::mt19937_64 random;
    std::vector<std::string> recorded;
};

} // namespace halvern::soak
