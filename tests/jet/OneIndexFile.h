#pragma once

#include <gtest/gtest.h>

#include "jet/Creator.h"
#include "jet/engine/Pager.h"
#include "jet/engine/TableDef.h"
#include "support/MemoryFileSystem.h"

// A new file with one table that has one index, open within a transaction.
class OneIndexFile : public testing::Test {
 protected:
  void SetUp() override {
    jet::NewTable table{"T", {{"N", jet::ColumnType::Long}}, {{"N", {{"N", true}}}}, {}};
    disk_.put(kPath, *jet::createDatabase({table}));
    pager_ = std::move(*jet::Pager::open(disk_, kPath, {}));
    ASSERT_TRUE(pager_->begin());
    for (std::uint32_t page = 6; page < pager_->pageCount(); ++page)
      if ((**pager_->page(page))[0] == 2) def_ = *jet::TableDef::read(*pager_, page);
    ASSERT_EQ(def_.indexes.size(), 1U);
  }

  static constexpr char kPath[] = "/datei.kwd";
  support::MemoryFileSystem disk_;
  std::unique_ptr<jet::Pager> pager_;
  jet::TableDef def_;
};
