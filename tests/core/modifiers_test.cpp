// Keys fire with exactly their modifiers.
#include "core/keys.h"
#include "headless/headless_platform.h"

#include <gtest/gtest.h>

TEST(Modifiers, AKeyNeedsExactlyItsOwn) {
  constexpr int kPageDown = 34, kF1 = 112;
  struct Row {
    const char *name;
    KeyPress key;
    bool taken;
  };
  for (const Row &row :
       {Row{"Ctrl+Q", {.code = 'Q', .ctrl = true}, true},
        Row{"Ctrl+Shift+Q", {.code = 'Q', .ctrl = true, .shift = true}, false}, Row{"Q", {.code = 'Q'}, false},
        Row{"I, ticked", {.code = 'I'}, true}, Row{"Shift+I, ticked", {.code = 'I', .shift = true}, false},
        Row{"Page Down", {.code = kPageDown}, true}, Row{"Ctrl+Page Down", {.code = kPageDown, .ctrl = true}, false},
        Row{"F1", {.code = kF1}, true}, Row{"Shift+F1", {.code = kF1, .shift = true}, false},
        Row{"Shift+Esc, ticked", {.code = 27, .shift = true}, false}}) {
    ViewerState viewer;
    HeadlessPlatform headless;
    attachHeadless(viewer, headless);
    viewer.preferences.Check3 = viewer.preferences.Check4 = kTrue;
    EXPECT_EQ(pressKey(viewer, row.key), row.taken) << row.name;
  }
}
