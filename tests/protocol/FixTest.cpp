// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/Fix.h"

#include <gtest/gtest.h>

namespace halvern {
namespace {

TEST(FixTest, IsFoundInABlockThatBeginsAndEndsAnywhere)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"GPGGA", ",,*4A\r\n$GPGGA,210000,4049.14235,N,07308.41781,W,1,08,0.9,12,M,-34,M,,*47\r\n$GPG",
         "4049.14N 07308.41W "},
        {"GPGGA", "$GPGGA,210000,4049.14,N,07308.41,W,0,08,0.9,12,M,-34,M,,*47", "none"},
        {"GPGGA", "$GPGGA,210000,4049.14,N,07308.41,W,2,08,0.9,12,M,-34,M,*47", "none"}, // a field is missing
        {"GPGGA", "$GPGGA,210000,4049.14,N,07308.41,W,1,08,0.9,12,M,-34,M,,", "none"},   // so is the end
        {"GPGGA", "$GPGGA,210000,,N,07308.41,W,1,08,0.9,12,M,-34,M,,*47", "none"},
        {"GPGGA", "$GPGGA,210000,4049.14,N,,W,1,08,0.9,12,M,-34,M,,*47", "none"},
        // the first sentence counts, be it as it may
        {"GPGLL", "$GPGLL,,N,,W,1,A*1C\r\n$GPGLL,4049.14,N,07308.41,W,210000,A*1C", "none"},
        {"GPGLL", "\xFF#GPGLL,4049.14,S,07308.41,E,210000,A,A*1C", "4049.14S 07308.41E "},
        {"GPGLL", "$GPGLL,4049.14,N,07308.41,W,210000,V*1C", "none"},
        {"GPGLL", "$GPGLL,4049.14,N,07308.41,W,210000,*1C", "4049.14N 07308.41W "},
        {"GPRMC", "$GPRMC,210000,A,4049.14,N,07308.41,W,12.5,088.4,010100,,*7C", "4049.14N 07308.41W 088/012"},
        {"GPRMC", "$GPRMC,210000,D,4049.14,N,07308.41,W,13.5,,010100,003.1,W,A*7C", "4049.14N 07308.41W 000/014"},
        {"GPRMC", "$GPRMC,210000,V,4049.14,N,07308.41,W,13.5,,010100,003.1,W,N*7C", "none"},
        {"GPRMC", "$GPRMC,210000,A,4049.14,N,07308.41,W,1000.0,088.4,010100,,*7C", "none"},
        // without a checksum of its own it takes the next one's, unless the fields run into each other
        {"GPGGA", "$GPGGA,210000,4049.14,N,07308.41,W,1,08,0.9,12,M,-34,M,,\r\n$GPGSA,A,3*3C", "4049.14N 07308.41W "},
        {"GPGLL", "$GPGLL,4049.14,N,07308.41,W\r\n$GPGSA,A,3,04,05*3C", "none"},
        {"GPGLL", "$GNGLL,4049.14,N,07308.41,W,210000,A*1C", "none"},
        {"", "$GPGLL,4049.14,N,07308.41,W,210000,A*1C", "none"},
        {"GPGLL", "", "none"},
    };
    for (const auto& [name, block, expected] : cases) {
        const auto fix = FixInBlock(block, name);
        EXPECT_EQ(fix ? fix->latitude + " " + fix->longitude + " " + fix->motion : "none", expected) << block;
    }
}

} // namespace
} // namespace halvern
