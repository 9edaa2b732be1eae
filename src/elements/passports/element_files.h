#pragma once
// The three pictures that belong to an element.

#include "elements/families/families.h"

#include <QPixmap>

enum class PictureSlot { Photo, Sketch, Column };
constexpr PictureSlot pictureSlots[] = {PictureSlot::Photo, PictureSlot::Sketch, PictureSlot::Column};

/// Null where nothing is stored, or no picture.
QPixmap loadPicture(const Family& family, int elementId, PictureSlot slot);
/// The file as it is stored; empty where nothing is.
QByteArray loadPictureFile(const Family& family, int elementId, PictureSlot slot);
/// Replaces what is stored. False, with the server's message on the console,
/// when it could not be.
bool storePicture(const Family& family, int elementId, PictureSlot slot, const QPixmap& picture);
