// The two sample commands by which an installation is tried out.
#pragma once

void helloModalDialog();
void helloPalette();
