#pragma once
// A control array of pictures, by index. A built-in picture is drawn the
// first time it is asked for, so a start-up pays only for the pictures its
// screens show; a picture put in its place (a theme choice, a file of the
// shop's own) replaces it without drawing it.
#include <QPixmap>
#include <functional>
#include <map>
#include <optional>

class PictureArray {
  public:
    using Draw = std::function<QPixmap()>;

    // A built-in picture at the index, drawn on first use.
    void define(int index, Draw draw);
    // Puts the picture at the index, made if the array had none there.
    void set(int index, const QPixmap& picture);
    bool contains(int index) const { return slots_.count(index) != 0; }
    // The picture at the index; throws Failure when the array has none there,
    // as a control array does.
    const QPixmap& at(int index) const;

  private:
    struct Slot {
        Draw draw;
        std::optional<QPixmap> picture;
    };
    mutable std::map<int, Slot> slots_;
};
