// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "platform/Controls.h"
#include "platform/Form.h"

namespace halvern {

/// The 16 colours of maps and labels, by number.
namespace colour {
enum Number : int {
    Black,
    Blue,
    Green,
    Cyan,
    Red,
    Magenta,
    Brown,
    White,
    Grey,
    LightBlue,
    LightGreen,
    LightCyan,
    LightRed,
    LightMagenta,
    Yellow,
    BrightWhite
};
}

/// The rectangle of view coordinates that a surface shows. x is longitude, west positive, so `left` is the larger.
struct ViewFrame {
    double left = 0, top = 0, right = 1, bottom = 1;
};

class Painter;

/// Gives points and lines that were drawn once to a painter anew, the same ones in the same order.
using LinesAgain = std::function<void(Painter& painter)>;

/// What draws, or notes, the operations on a surface. All coordinates are view coordinates.
class Painter {
public:
    virtual ~Painter() = default;
    /// Takes away all that was drawn.
    virtual void Clear() = 0;
    /// The degrees at the edges, by which later steps are placed.
    virtual void SetFrame(const ViewFrame& frame) = 0;
    /// One dot at a longitude (west positive) and latitude.
    virtual void Point(double x, double y, int colour) = 0;
    /// From the current point, which moves to the end of the line.
    virtual void LineTo(double x, double y, int colour) = 0;
    virtual void Box(double x1, double y1, double x2, double y2, int colour) = 0;
    virtual void Circle(double x, double y, double radius, int colour) = 0;
    /// The points and lines from here to the end can be had again: who keeps that need not keep them.
    virtual void BeginLines(const LinesAgain&) {}
    /// @param unseen  how many there were that this surface was not given, since it takes over its twin's picture
    virtual void EndLines(std::size_t /*unseen*/) {}
    /// A picture file, from the top-left corner, `width` by `height` pixels.
    virtual void Picture(const std::string& file, int width, int height) = 0;
    /// What stands on another surface becomes the lasting picture of this one, if both are of a kind.
    virtual void Keep(Painter& other) = 0;
    /// Black pixels of what stands here become white.
    virtual void WhitenGround() {}
    /// What stands here as the bytes of a BMP file; none from a painter that makes no pictures.
    virtual std::string Bitmap() { return {}; }
};

/// How a box meets what is drawn already: the box of a drag takes itself away with Invert before it is drawn anew.
enum class DrawMode { Copy, Invert };
enum class Pointer { Default, CrossHair, HourGlass, Arrow };
enum class MouseButton { Left, Right };

/// A surface to draw on. Every painter that is attached gets every operation.
class Surface : public Control {
public:
    using Control::Control;
    Surface(Form& form, std::string_view name) : Control(form, name) {}

    /// A painter gets each step from here on, until it is detached.
    void Attach(Painter& painter) { painters.push_back(&painter); }
    void Detach(Painter& painter);

    /// The steps below go to every painter, in order; coordinates are those of the frame.
    void Clear();
    void SetFrame(const ViewFrame& frame);
    void Point(double x, double y, int colour);
    void LineTo(double x, double y, int colour);
    void Box(double x1, double y1, double x2, double y2, int colour);
    void Circle(double x, double y, double radius, int colour);
    void BeginLines(const LinesAgain& again);
    void EndLines(std::size_t unseen);
    void Picture(const std::string& file, int width, int height);
    /// The picture of `other` becomes the lasting picture of this surface; painters of a kind pair up.
    void Keep(Surface& other);
    /// Black becomes white until the next Clear, for paper.
    void WhitenGround();
    /// The picture as the bytes of a BMP file, or nothing where nobody makes one.
    std::string Bitmap() const;

    /// The frame set last.
    const ViewFrame& Frame() const { return frame; }
    /// Size in pixels of an ordinary screen.
    int Width() const { return width; }
    int Height() const { return height; }
    void SetSize(int width, int height);
    /// Length of `pixels` pixels in view units.
    double UnitsWide(double pixels) const;
    double UnitsHigh(double pixels) const;

    /// What the mouse pointer looks like above it.
    Pointer MousePointer() const { return pointer; }
    void SetMousePointer(Pointer next) { Put(pointer, next); }
    /// False while a map is drawn that comes on the screen as a whole.
    bool AutoRepaint = false;
    DrawMode Mode = DrawMode::Copy;
    /// Asks whoever shows the surface to show it again.
    void Repaint() { Tell({}); }

    std::function<void(MouseButton, double x, double y)> OnMouseDown, OnMouseUp;
    std::function<void(double x, double y)> OnMouseMove;

private:
    std::vector<Painter*> painters;
    ViewFrame frame;
    int width = 320, height = 240;
    Pointer pointer = Pointer::Default;
};

/// A station's picture above the map. Left and top are view coordinates.
struct PictureSprite {
    std::string file;
    int width = 0, height = 0; ///< pixels, as the file says
    float left = 0, top = 0;
    bool visible = false;
};

/// A station's label above the map.
struct LabelSprite {
    std::string caption;
    int colour = colour::White;
    int ground = colour::Black;
    bool border = false;
    float left = 0, top = 0;
    bool visible = false;
};

/// Pictures or labels that float above a map, one an index. A watcher is told the row that changed, or RowsCleared
/// when all may have.
template <class Sprite> class SpriteArray : public Control {
public:
    SpriteArray(Form& form, std::string_view name) : Control(form, name), sprites(1) {}
    /// Element 0 is always there.
    int Count() const { return static_cast<int>(sprites.size()); }
    bool Exists(int index) const { return index >= 0 && index < Count(); }
    const Sprite& operator()(int index) const
    {
        Require(index);
        return sprites[index];
    }
    /// Puts a sprite in, and makes the array as long as that needs.
    void Set(int index, const Sprite& sprite)
    {
        if (index >= Count()) sprites.resize(index + 1);
        Require(index);
        sprites[index] = sprite;
        Tell({Change::RowReplaced, index});
    }
    /// Changes one sprite in place.
    template <class Edit> void Alter(int index, Edit edit)
    {
        Require(index);
        edit(sprites[index]);
        Tell({Change::RowReplaced, index});
    }
    /// Changes the first `count` sprites by `edit(index, sprite)`; watchers are told once.
    template <class Edit> void AlterFirst(int count, Edit edit)
    {
        count = std::min(count, Count());
        for (int i = 0; i < count; ++i) edit(i, sprites[i]);
        Tell({Change::RowsCleared});
    }
    void Show(int index, bool visible)
    {
        if (Exists(index)) Alter(index, [&](Sprite& sprite) { sprite.visible = visible; });
    }
    /// Destroys all but element 0.
    void CutToFirst()
    {
        sprites.resize(1);
        Tell({Change::RowsCleared});
    }

private:
    void Require(int index) const
    {
        if (!Exists(index)) NoSuchRow();
    }
    std::vector<Sprite> sprites;
};

} // namespace halvern
