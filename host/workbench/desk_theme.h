// Light or dark windows, menus and panels.
#pragma once

// The light one is the toolkit's own.
void setDarkTheme(bool dark);
