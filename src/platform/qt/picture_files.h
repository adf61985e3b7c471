#pragma once

#include <string>

#include "core/picture.h"

namespace brindlemoor {

/// `picture` as the bytes of a BMP file of 24 bits a pixel.
std::string PictureFileOf(const Picture& picture);

/// Makes `picture` the one in the bytes of a picture file of any kind that Qt reads; what is
/// transparent in it is white. False, with `picture` as it was, when there is none.
bool ReadPictureFile(const std::string& bytes, Picture& picture);

}  // namespace brindlemoor
