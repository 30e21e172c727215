#include "jet/engine/CatalogRows.h"

#include <array>
#include <bit>

#include "jet/engine/Damage.h"
#include "jet/engine/NewTableDef.h"
#include "jet/engine/TableEditor.h"

namespace jet {
namespace {

constexpr std::uint8_t kSystemColumn = 0x12;

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

// Accounts, as two bytes. In a file of Jet 4 they are masked.
using Account = std::array<std::uint8_t, 2>;
constexpr Account kAdmin = {3, 1};
constexpr Account kUsers = {2, 1};
constexpr Account kEngine = {2, 3};
constexpr Account kCreators = {2, 4};

Account combined(const Account& a, const Account& b) {
  return {static_cast<std::uint8_t>(a[0] ^ b[0]), static_cast<std::uint8_t>(a[1] ^ b[1])};
}

using NamedValues = std::initializer_list<std::pair<const char*, Value>>;

Result<void> insert(Pager& pager, Table& table, NamedValues values) {
  std::vector<Value> row(table.def().columns.size());
  for (const auto& [name, value] : values) {
    const auto column = table.def().columnByName(name);
    if (!column) return damaged(table.def().page, "the catalog has no column %1", name);
    row[*column] = value;
  }
  auto added = TableEditor(pager, table).insert(std::move(row));
  return added ? Result<void>() : Failure(added.error());
}

// Enters objects and permissions into the two tables of a file.
class CatalogEditor {
 public:
  CatalogEditor(Pager& pager, CatalogTables tables, const Account& mask, DateTime made)
      : pager_(pager), tables_(tables), mask_(mask), made_(made) {}

  Result<void> addObject(std::int64_t id, std::int64_t parent, const std::string& name,
                         std::int64_t type, const Account& owner, std::int64_t flags) {
    return insert(pager_, tables_.objects,
                  {{"Id", id},
                   {"ParentId", parent},
                   {"Name", name},
                   {"Type", type},
                   {"DateCreate", made_},
                   {"DateUpdate", made_},
                   {"Owner", stored(owner)},
                   {"Flags", flags}});
  }
  Result<void> addPermission(std::int64_t object, const Account& account, std::int64_t mask,
                             bool inheritable = false) {
    return insert(pager_, tables_.permissions,
                  {{"ObjectId", object},
                   {"SID", stored(account)},
                   {"ACM", mask},
                   {"FInheritable", inheritable}});
  }

 private:
  Value stored(const Account& account) const {
    const Account masked = combined(account, mask_);
    return Bytes(masked.begin(), masked.end());
  }

  Pager& pager_;
  CatalogTables tables_;
  Account mask_;
  DateTime made_;
};

// The database as an object belongs to the administrator in every file, which tells the mask.
Result<Account> accountMask(const Table& objects) {
  const auto id = objects.def().columnByName("Id");
  const auto owner = objects.def().columnByName("Owner");
  for (std::size_t i = 0; id && owner && i < objects.rowCount(); ++i) {
    auto number = objects.value(i, *id);
    if (!number) return Failure(number.error());
    if (*number != Value(kDatabase)) continue;
    auto account = objects.value(i, *owner);
    if (!account) return Failure(account.error());
    const auto* bytes = std::get_if<Bytes>(&*account);
    if (bytes != nullptr && bytes->size() == kAdmin.size())
      return combined({(*bytes)[0], (*bytes)[1]}, kAdmin);
  }
  return refuse(base::ErrorCode::Unsupported, "the file does not tell whose a new table is");
}

struct SystemColumn {
  const char* name;
  ColumnType type;
};

TableDef systemTable(const format::Version& version, std::initializer_list<SystemColumn> columns) {
  TableDef table;
  table.systemTable = true;
  for (const SystemColumn& column : columns) {
    const bool limited = column.type == ColumnType::Text || column.type == ColumnType::Binary;
    const bool masked = column.name == std::string("Owner") || column.name == std::string("SID");
    addColumn(table, column.name, column.type,
              limited ? static_cast<int>(version.column.longestBinary) : 0,
              masked ? kSystemColumn | format::kColumnMasked : kSystemColumn);
  }
  return table;
}

Result<void> addSystemPermissions(CatalogEditor& catalog) {
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
    auto added = catalog.addPermission(row.object, row.account, row.mask, row.inheritable);
    if (!added) return added;
  }
  return {};
}

}  // namespace

TableDef objectsTable(const format::Version& version) {
  TableDef table = systemTable(version, {{"Id", ColumnType::Long},
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
  addIndex(table, "ParentIdName", {{1, true}, {2, true}}, false, format::kIndexUnique);
  addIndex(table, "Id", {{0, true}}, true, format::kIndexUnique);
  return table;
}

TableDef permissionsTable(const format::Version& version) {
  TableDef table = systemTable(version, {{"ObjectId", ColumnType::Long},
                                         {"SID", ColumnType::Binary},
                                         {"ACM", ColumnType::Long},
                                         {"FInheritable", ColumnType::Boolean}});
  addIndex(table, "ObjectId", {{0, true}}, false, format::kIndexRequired);
  return table;
}

TableDef queriesTable(const format::Version& version) {
  TableDef table = systemTable(version, {{"ObjectId", ColumnType::Long},
                                         {"Attribute", ColumnType::Byte},
                                         {"Order", ColumnType::Binary},
                                         {"Name1", ColumnType::Text},
                                         {"Name2", ColumnType::Text},
                                         {"Expression", ColumnType::Memo},
                                         {"Flag", ColumnType::Integer},
                                         {"LvExtra", ColumnType::Long}});
  addIndex(table, "ObjectIdAttribute", {{0, true}, {1, true}, {2, true}}, true,
           format::kIndexUnique);
  return table;
}

TableDef relationshipsTable(const format::Version& version) {
  TableDef table = systemTable(version, {{"szRelationship", ColumnType::Text},
                                         {"grbit", ColumnType::Long},
                                         {"ccolumn", ColumnType::Long},
                                         {"icolumn", ColumnType::Long},
                                         {"szObject", ColumnType::Text},
                                         {"szColumn", ColumnType::Text},
                                         {"szReferencedObject", ColumnType::Text},
                                         {"szReferencedColumn", ColumnType::Text}});
  addIndex(table, "szRelationship", {{0, true}}, false, format::kIndexIgnoreNulls);
  addIndex(table, "szObject", {{4, true}}, false, format::kIndexIgnoreNulls);
  addIndex(table, "szReferencedObject", {{6, true}}, false, format::kIndexIgnoreNulls);
  return table;
}

Result<void> enterSystemTables(Pager& pager, CatalogTables tables, DateTime made) {
  CatalogEditor catalog(pager, tables, pager.version().header.newOwnerMask, made);
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
        catalog.addObject(row.id, row.parent, row.name, row.type, row.owner, kSystemObject);
    if (!added) return added;
  }
  return addSystemPermissions(catalog);
}

Result<void> enterTable(Pager& pager, CatalogTables tables, const std::string& name,
                        std::uint32_t page, DateTime made) {
  auto mask = accountMask(tables.objects);
  if (!mask) return Failure(mask.error());
  CatalogEditor catalog(pager, tables, *mask, made);
  auto entered = catalog.addObject(page, kTables, name, kTypeTable, kAdmin, 0);
  if (!entered && entered.error().code == base::ErrorCode::InvalidValue)
    return about(name, refuse(base::ErrorCode::InvalidValue, "the name is there already"));
  if (!entered) return entered;
  if (auto added = catalog.addPermission(page, kUsers, 0xFFEFF); !added) return added;
  return catalog.addPermission(page, kAdmin, 0xF00FE);
}

}  // namespace jet
