// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/MapStation.h"

namespace halvern::test {
namespace {

/// Counts what reaches it, and makes a "picture" of that.
class Tracing final : public Painter {
public:
    explicit Tracing(Surface& surface) : surface(surface) { surface.Attach(*this); }
    ~Tracing() override { surface.Detach(*this); }
    void Clear() override { seen = "nothing"; }
    void SetFrame(const ViewFrame&) override {}
    void Point(double, double, int) override { seen = "lines"; }
    void LineTo(double, double, int) override {}
    void Box(double, double, double, double, int) override {}
    void Circle(double, double, double, int) override {}
    void Picture(const std::string& file, int, int) override { seen = file; }
    void Keep(Painter& other) override
    {
        if (auto* from = dynamic_cast<Tracing*>(&other)) seen = from->seen;
    }
    std::string Bitmap() override { return "BM " + seen; }

private:
    Surface& surface;
    std::string seen = "nothing";
};

class MapPicture : public MapStation {
protected:
    MapPicture()
    {
        ShowMap();
        GoToView(halvern(), 40, 73, 1024);
        station.dialogs.Screen = [](Surface& onto) { onto.Picture("the screen", 1366, 768); };
    }
    void Save(const char* withSymbols, const char* file)
    {
        station.dialogs.Answers = {{withSymbols, true}, {file}};
        halvern().All.Dispatch([&] { main().SaveBitMapMenu.Click(); });
    }
    std::string Saved() const { return station.files.Read(S() + "/mapbmpgif/here.bmp").value_or("no file"); }

    Tracing map{halvern().MapFrm.Map1}, copy{halvern().MapFrm.Pic2};
};

TEST_F(MapPicture, IsTheMapAloneOrTheWholeScreenAsTheOperatorAnswers)
{
    halvern().MapFrm.Map1.Point(73, 40, 1);
    Save("no", "here.bmp");
    EXPECT_EQ(Saved(), "BM lines");
    Save("yes", "here.bmp");
    EXPECT_EQ(Saved(), "BM the screen");
    station.dialogs.Screen = nullptr;
    Save("yes", "here.bmp");
    EXPECT_EQ(Saved(), "BM lines") << "no screen to be had: better the map than nothing";
    EXPECT_EQ(halvern().MapFrm.Pic2.Bitmap(), "BM nothing");
}

TEST_F(MapPicture, ThatCantBeWrittenIsToldAndTheProgramGoesOn)
{
    station.TakeSaid();
    Save("no", "no such folder/here.bmp");
    EXPECT_THAT(station.TakeSaid().back(), ::testing::StartsWith("message critical \"Halvern\" \"Error # 75 "));
    EXPECT_EQ(copy.Bitmap(), "BM nothing");
}

} // namespace
} // namespace halvern::test
