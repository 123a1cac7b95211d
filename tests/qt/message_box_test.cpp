// Messages whose length comes from a file: the box stays on the screen.
#include "shell/qt/message_box.h"

#include <string>

#include "gtest/gtest.h"

namespace tess {
namespace {

std::string numberedLines(int count) {
  std::string text;
  for (int line = 1; line <= count; ++line) text += "line " + std::to_string(line) + "\n";
  return text + "end";
}

TEST(MessageBox, ATextThatFitsIsShownAsItIs) {
  for (const std::string& text : {std::string(), std::string("One line"), std::string("a\n\nb\n"),
                                  numberedLines(39), std::string(2000, 'x')}) {
    EXPECT_EQ(shownText(text).toStdString(), text);
  }
}

TEST(MessageBox, OfManyLinesTheFirstAndTheLastAreShown) {
  const QStringList lines = shownText(numberedLines(100000)).split('\n');
  ASSERT_EQ(lines.size(), 40);
  EXPECT_EQ(lines.front(), "line 1");
  EXPECT_EQ(lines[33], "line 34");
  EXPECT_EQ(lines[34], "... and 99962 more lines ...");
  EXPECT_EQ(lines[35], "line 99997");
  EXPECT_EQ(lines.back(), "end");
}

TEST(MessageBox, OfALongLineTheBeginningIsShown) {
  EXPECT_EQ(shownText("a\n" + std::string(1000000, 'x') + "\nb").toStdString(),
            "a\n" + std::string(2000, 'x') + "...\nb");
}

TEST(MessageBox, TheBoxHasTheShortenedText) {
  QMessageBox box;
  fillMessageBox(box, {.text = numberedLines(1000), .title = "A file"});
  EXPECT_EQ(box.text(), shownText(numberedLines(1000)));
  EXPECT_LT(box.sizeHint().height(), 2000);
}

TEST(MessageBox, IsWideEnoughForItsTitle) {
  QMessageBox narrow, wide;
  const std::string title = "A long title over a short text";
  fillMessageBox(narrow, {.text = "x", .title = "A"});
  fillMessageBox(wide, {.text = "x", .title = title});
  const int letters = wide.fontMetrics().horizontalAdvance(QString::fromStdString(title));
  EXPECT_GE(wide.sizeHint().width(), letters);
  EXPECT_GT(wide.sizeHint().width(), narrow.sizeHint().width());
}

}  // namespace
}  // namespace tess
