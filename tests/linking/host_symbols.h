#pragma once

/// Takes away what the host's table has left behind, if anything.
void clearTableAway();
