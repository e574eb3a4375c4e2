#pragma once

/// @file
/// The host kit: a ready-made host. It has a default for every symbol of core/host.h, each of which gives way
/// to the program's own definition, and what a host needs to start, run and end.

#include "hostkit/close_request.h"
#include "hostkit/files.h"
#include "hostkit/key_table.h"
#include "hostkit/key_tone.h"
#include "hostkit/menu_window.h"
#include "hostkit/pads.h"
#include "hostkit/rotation.h"
#include "hostkit/session.h"
#include "hostkit/settings.h"
#include "hostkit/theme.h"
#include "hostkit/unattended.h"
