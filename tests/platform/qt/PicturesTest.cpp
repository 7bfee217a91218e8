// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/screen/Pictures.h"

#include <sys/stat.h>

#include <QBuffer>

#include "support/StationTest.h"
#include "support/qt/Application.h"

namespace halvern::test {
namespace {

std::string Saved(const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImage image(300, 200, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.save(&buffer, format);
    return bytes.toStdString();
}

/// Bytes that are no picture, and are the same in every run.
std::string Noise()
{
    std::string noise(5000, '\0');
    unsigned state = 1;
    for (auto& byte : noise) byte = static_cast<char>((state = state * 1103515245 + 12345) >> 16);
    return noise;
}

TEST(Pictures, OnlyThoseThatCanBeShownWholeHaveASize)
{
    using namespace std::string_literals;
    const auto gif = DiskFiles().Read(DataFolder() + "/bitmap/usa.gif").value();
    const auto bmp = Saved("BMP"), jpg = Saved("JPG");
    const auto sides = jpg.find("\xFF\xC0") + 5; // height and width, two bytes each
    const struct {
        const char* kind;
        std::string whole;
        std::size_t head;   ///< how far its head goes
        std::string absurd; ///< sides that no picture has
    } cases[] = {{"gif", gif, 13, gif.substr(0, 6) + "\xFF\xFF\xFF\xFF" + gif.substr(10)},
                 {"bmp", bmp, 54, bmp.substr(0, 18) + "\0\x94\x35\x77\0\x94\x35\x77"s + bmp.substr(26)},
                 {"jpg", jpg, sides + 14, jpg.substr(0, sides) + "\xFF\xFF\xFF\xFF" + jpg.substr(sides + 4)}};
    for (const auto& [kind, whole, head, absurd] : cases) {
        EXPECT_TRUE(ShownSize(whole)) << kind;
        EXPECT_TRUE(PictureSize(whole.substr(0, head))) << kind << ": the head is a good one";
        for (const auto& broken : {whole.substr(0, whole.size() / 2), whole.substr(0, head),
                                   whole.substr(0, head) + Noise(), absurd, Noise(), std::string()})
            EXPECT_FALSE(ShownSize(broken)) << kind << " of " << broken.size() << " bytes";
    }
}

TEST(Pictures, AllThatComeWithTheProgramCanBeShown)
{
    int count = 0;
    for (const auto& file : std::filesystem::recursive_directory_iterator(DataFolder() + "/symbols"))
        if (LowerCase(file.path().extension().string()) == ".gif") {
            EXPECT_TRUE(ShownSize(DiskFiles().Read(file.path()).value())) << file.path();
            ++count;
        }
    EXPECT_GT(count, 150);
}

} // namespace
} // namespace halvern::test
