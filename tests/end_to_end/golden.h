#pragma once

#include "end_to_end/picture.h"

#include <string>

/// The picture NAME.png of tests/golden. Where KESTRO_UPDATE_GOLDEN is set it is made of `got` first, which
/// fails the test, so that somebody looks at it.
Picture goldenPicture(const std::string& name, const Picture& got);

/// Expects two pictures to be the same, pixel by pixel; on other processors than x86-64 a channel may be off
/// by 2. If they are not, both and the difference are saved as NAME-wanted.png and so on, where the pictures
/// that failed are.
void expectSamePicture(const std::string& name, const Picture& wanted, const Picture& got);
