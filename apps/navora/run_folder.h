#pragma once

#include "navora/options.h"

namespace navora {

/// Makes the paths of `options`, which were meant from here, absolute, and enters the run folder, where the
/// font, the skin and the sample content are: the folder of the environment variable NAVORA_HOME, or else
/// that of the installation or the build. Without a folder to show, takes the sample content. Returns whether
/// all folders can be read; says on standard error which one cannot.
bool enterRunFolder(Options& options);

} // namespace navora
