#include "widgets/FileList.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QButtonGroup>
#include <QRadioButton>
#include <QTest>
#include <QVBoxLayout>

#include "widgets/ProgramStyle.h"

using namespace Qt::Literals::StringLiterals;

namespace {

TEST(FileList, TellsOfTheFilesInViewAlone) {
  widgets::FileList list;
  QStringList names, asked;
  for (int i = 0; i < 2000; ++i) names += u"Jahr %1.kwd"_s.arg(i, 4, 10, QChar(u'0'));
  list.setLister([&](const QString&) { return names; });
  list.setDescriber([&](const QString& path) {
    asked += path.section(u'/', -1);
    return widgets::FileList::Description{u"leer"_s, u"geändert"_s};
  });
  list.resize(300, 300);
  list.setFolder(u"/daten"_s);
  list.show();
  // Until it asks no more.
  for (qsizetype before = -1; before != asked.size(); QTest::qWait(100)) before = asked.size();
  EXPECT_TRUE(asked.contains(names.first()));
  EXPECT_LT(asked.size(), 20);
  EXPECT_EQ(list.item(0)->data(Qt::AccessibleDescriptionRole), u"leer, geändert"_s);
  list.scrollToBottom();
  ASSERT_TRUE(QTest::qWaitFor([&] { return asked.contains(names.last()); }));
  EXPECT_LT(asked.size(), 40);
  // Listed anew it shows what it knew, and asks again.
  const auto before = asked.size();
  list.refresh();
  EXPECT_EQ(list.item(0)->data(Qt::AccessibleDescriptionRole), u"leer, geändert"_s);
  EXPECT_TRUE(QTest::qWaitFor([&] { return asked.size() > before; }));
}

TEST(FileList, SeveralNamesStaySelectedWhenItIsListedAnew) {
  widgets::FileList list;
  QStringList names{u"A"_s, u"B"_s, u"C"_s};
  list.setSelectionMode(QAbstractItemView::ExtendedSelection);
  list.setLister([&](const QString&) { return names; });
  list.setFolder(u"/daten"_s);
  list.item(0)->setSelected(true);
  list.item(2)->setSelected(true);
  names += u"D"_s;
  list.refresh();
  EXPECT_EQ(list.selectedNames(), (QStringList{u"A"_s, u"C"_s}));
  EXPECT_EQ(list.selectedName(), u"A"_s);
}

TEST(ProgramStyle, TabGoesToTheChosenOptionOfAGroup) {
  widgets::ProgramStyle style;
  for (const bool grouped : {false, true}) {
    QWidget window;
    QVBoxLayout rows(&window);
    QButtonGroup group;
    QList<QRadioButton*> options;
    for (int i = 0; i < 3; ++i) {
      options += new QRadioButton(QString::number(i), &window);
      options.last()->setStyle(&style);
      rows.addWidget(options.last());
      if (grouped) group.addButton(options.last());
    }
    options[1]->setChecked(true);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto stops = [&] {
      QList<int> found;
      for (int i = 0; i < 3; ++i)
        if (options[i]->focusPolicy() & Qt::TabFocus) found += i;
      return found;
    };
    EXPECT_EQ(stops(), QList<int>{1});
    options[2]->setChecked(true);
    EXPECT_EQ(stops(), QList<int>{2});
  }
}

}  // namespace
