// Numbers of the executable's resources. Read by the resource compiler too, hence macros.
#pragma once

#define RAVELIN_ICON_LARGE 107
#define RAVELIN_ICON_SMALL 108
