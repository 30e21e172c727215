#include "jet/CatalogRows.h"

#include <algorithm>

#include "base/Paths.h"

namespace jet {
namespace {

using base::Bytes;
using base::Result;

constexpr std::uint8_t kSystemColumn = 0x12;
constexpr std::uint8_t kSystemIndex = 0x80;
constexpr int kLongest = 510;

// Object numbers. Tables have the page of their definition.
constexpr std::int64_t kRoot = 0x0F000000;
constexpr std::int64_t kTables = 0x0F000001;
constexpr std::int64_t kDatabases = 0x0F000002;
constexpr std::int64_t kRelationships = 0x0F000003;
constexpr std::int64_t kDatabase = 0x10000000;

constexpr std::int64_t kTypeTable = 1;
constexpr std::int64_t kTypeDatabase = 2;
constexpr std::int64_t kTypeContainer = 3;
constexpr std::int64_t kSystemObject = -0x80000000LL;

// Accounts, as two bytes. In the file they are masked; the mask belongs to the creation date that
// every new file bears (NewFile.cpp).
using Account = std::array<std::uint8_t, 2>;
constexpr Account kMask = {0x67, 0x8A};
constexpr Account kAdmin = {3, 1};
constexpr Account kUsers = {2, 1};
constexpr Account kEngine = {2, 3};
constexpr Account kCreators = {2, 4};

// The catalog of a file says when its objects were made. The same moment always, so that the same
// tables give the same file.
constexpr std::uint64_t kMade = 0x40E4AB3E3BD3FB4E;

Value stored(const Account& account) {
  return Bytes{static_cast<std::uint8_t>(account[0] ^ kMask[0]),
               static_cast<std::uint8_t>(account[1] ^ kMask[1])};
}

struct SystemColumn {
  const char* name;
  ColumnType type;
};

// Definitions of system tables list the columns by name.
TablePlan planOf(const char* name, std::initializer_list<SystemColumn> columns) {
  TablePlan plan;
  plan.name = name;
  plan.system = true;
  for (const SystemColumn& column : columns) {
    const bool limited = column.type == ColumnType::Text || column.type == ColumnType::Binary;
    const bool masked = column.name == std::string("Owner") || column.name == std::string("SID");
    addColumn(plan, column.name, column.type, limited ? kLongest : 0,
              masked ? kSystemColumn | format::kColumnMasked : kSystemColumn);
  }
  for (std::size_t i = 0; i < plan.columns.size(); ++i) plan.order.push_back(i);
  std::sort(plan.order.begin(), plan.order.end(), [&](std::size_t a, std::size_t b) {
    return base::lowerCase(plan.columns[a].column.name) <
           base::lowerCase(plan.columns[b].column.name);
  });
  return plan;
}

void addIndex(TablePlan& plan, const char* name, std::initializer_list<std::size_t> columns,
              std::uint8_t flags, bool primary = false) {
  PlannedIndex index;
  index.name = name;
  for (const std::size_t column : columns) index.parts.push_back({column, true});
  index.flags = kSystemIndex | flags;
  index.primary = primary;
  plan.indexes.push_back(std::move(index));
}

Result<void> addObject(TableWriter& objects, std::int64_t id, std::int64_t parent,
                       const std::string& name, std::int64_t type, const Account& owner,
                       std::int64_t flags) {
  std::vector<Value> row(objects.plan().columns.size());
  const DateTime made{std::bit_cast<double>(kMade)};
  const std::array<Value, 8> values = {id, parent, name, type, made, made, stored(owner), flags};
  std::copy(values.begin(), values.end(), row.begin());
  return objects.addRow(std::move(row));
}

Result<void> addPermission(TableWriter& permissions, std::int64_t object, const Account& account,
                           std::int64_t mask, bool inheritable = false) {
  return permissions.addRow({object, stored(account), mask, inheritable});
}

Result<void> addSystemPermissions(TableWriter& permissions) {
  struct Permission {
    std::int64_t object;
    Account account;
    std::int64_t mask;
    bool inheritable = false;
  };
  const std::array<Permission, 16> rows = {{
      {2, kAdmin, 0x60000},
      {3, kAdmin, 0x60000},
      {4, kAdmin, 0x60000},
      {5, kAdmin, 0xE0000},
      {kTables, kCreators, 0xF00FE, true},
      {kTables, kAdmin, 0x60001},
      {kRelationships, kCreators, 0xF00FE, true},
      {kRelationships, kAdmin, 0x60001},
      {kDatabases, kAdmin, 0x60000},
      {kDatabase, kAdmin, 0x6000E},
      {kDatabase, kUsers, 0x0000E},
      {4, kUsers, 0x00014},
      {5, kUsers, 0x00014},
      {2, kUsers, 0x00014},
      {kTables, kUsers, 0xFFEFF, true},
      {kRelationships, kUsers, 0xFFFFF, true},
  }};
  for (const Permission& row : rows) {
    auto added = addPermission(permissions, row.object, row.account, row.mask, row.inheritable);
    if (!added) return added;
  }
  return {};
}

}  // namespace

TablePlan objectsPlan() {
  TablePlan plan = planOf("MSysObjects", {{"Id", ColumnType::Long},
                                          {"ParentId", ColumnType::Long},
                                          {"Name", ColumnType::Text},
                                          {"Type", ColumnType::Integer},
                                          {"DateCreate", ColumnType::DateTime},
                                          {"DateUpdate", ColumnType::DateTime},
                                          {"Owner", ColumnType::Binary},
                                          {"Flags", ColumnType::Long},
                                          {"Database", ColumnType::Memo},
                                          {"Connect", ColumnType::Memo},
                                          {"ForeignName", ColumnType::Text},
                                          {"RmtInfoShort", ColumnType::Binary},
                                          {"RmtInfoLong", ColumnType::Ole},
                                          {"Lv", ColumnType::Ole},
                                          {"LvProp", ColumnType::Ole},
                                          {"LvModule", ColumnType::Ole},
                                          {"LvExtra", ColumnType::Ole}});
  addIndex(plan, "ParentIdName", {1, 2}, format::kIndexUnique);
  addIndex(plan, "Id", {0}, format::kIndexUnique, true);
  return plan;
}

TablePlan permissionsPlan() {
  TablePlan plan = planOf("MSysACEs", {{"ObjectId", ColumnType::Long},
                                       {"SID", ColumnType::Binary},
                                       {"ACM", ColumnType::Long},
                                       {"FInheritable", ColumnType::Boolean}});
  addIndex(plan, "ObjectId", {0}, format::kIndexRequired);
  return plan;
}

TablePlan queriesPlan() {
  TablePlan plan = planOf("MSysQueries", {{"ObjectId", ColumnType::Long},
                                          {"Attribute", ColumnType::Byte},
                                          {"Order", ColumnType::Binary},
                                          {"Name1", ColumnType::Text},
                                          {"Name2", ColumnType::Text},
                                          {"Expression", ColumnType::Memo},
                                          {"Flag", ColumnType::Integer},
                                          {"LvExtra", ColumnType::Long}});
  addIndex(plan, "ObjectIdAttribute", {0, 1, 2}, format::kIndexUnique, true);
  return plan;
}

TablePlan relationshipsPlan() {
  TablePlan plan = planOf("MSysRelationships", {{"szRelationship", ColumnType::Text},
                                                {"grbit", ColumnType::Long},
                                                {"ccolumn", ColumnType::Long},
                                                {"icolumn", ColumnType::Long},
                                                {"szObject", ColumnType::Text},
                                                {"szColumn", ColumnType::Text},
                                                {"szReferencedObject", ColumnType::Text},
                                                {"szReferencedColumn", ColumnType::Text}});
  addIndex(plan, "szRelationship", {0}, format::kIndexIgnoreNulls);
  addIndex(plan, "szObject", {4}, format::kIndexIgnoreNulls);
  addIndex(plan, "szReferencedObject", {6}, format::kIndexIgnoreNulls);
  return plan;
}

Result<void> addSystemRows(TableWriter& objects, TableWriter& permissions) {
  struct Object {
    std::int64_t id;
    std::int64_t parent;
    const char* name;
    std::int64_t type;
    Account owner;
  };
  const std::array<Object, 8> rows = {{
      {kTables, kRoot, "Tables", kTypeContainer, kEngine},
      {kDatabases, kRoot, "Databases", kTypeContainer, kEngine},
      {kRelationships, kRoot, "Relationships", kTypeContainer, kEngine},
      {kDatabase, kDatabases, "MSysDb", kTypeDatabase, kAdmin},
      {2, kTables, "MSysObjects", kTypeTable, kEngine},
      {3, kTables, "MSysACEs", kTypeTable, kEngine},
      {4, kTables, "MSysQueries", kTypeTable, kEngine},
      {5, kTables, "MSysRelationships", kTypeTable, kEngine},
  }};
  for (const Object& row : rows) {
    auto added =
        addObject(objects, row.id, row.parent, row.name, row.type, row.owner, kSystemObject);
    if (!added) return added;
  }
  return addSystemPermissions(permissions);
}

Result<void> addTableRows(TableWriter& objects, TableWriter& permissions, const std::string& name,
                          std::uint32_t page) {
  if (auto added = addObject(objects, page, kTables, name, kTypeTable, kAdmin, 0); !added)
    return added;
  if (auto added = addPermission(permissions, page, kUsers, 0xFFEFF); !added) return added;
  return addPermission(permissions, page, kAdmin, 0xF00FE);
}

}  // namespace jet
