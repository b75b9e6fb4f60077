#include "shell/picture_array.h"

#include "store/failure.h"

void PictureArray::define(int index, Draw draw) {
    slots_[index] = Slot{std::move(draw), std::nullopt};
}

void PictureArray::set(int index, const QPixmap& picture) {
    slots_[index] = Slot{Draw(), picture};
}

const QPixmap& PictureArray::at(int index) const {
    const auto it = slots_.find(index);
    if (it == slots_.end())
        throw Failure(QStringLiteral("Index de tableau de contrôles incorrect"));
    Slot& slot = it->second;
    if (!slot.picture) slot.picture = slot.draw ? slot.draw() : QPixmap();
    return *slot.picture;
}
