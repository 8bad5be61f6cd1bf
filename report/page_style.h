// How the page looks.
#pragma once

// What stands in its <style>. Texts and grounds differ by a contrast of 4.5 or more in the light and in the dark scheme; what a
// colour tells stands there in words or signs as well.
extern const char *const kPageStyle;
