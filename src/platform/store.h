// The store engine: the small DAO-like interface the logic uses to read and
// write the two store files. Backend: src/platform/sqlite (SQLite C API).
//
// A Database is one open store file. A Recordset is opened on it, used and
// closed inside one procedure. Table-type recordsets (on a table name) move
// through the rows in the order of the current index and can Seek; dynaset
// and snapshot recordsets run a query text. Values always reach the engine
// as bound parameters, never spliced into SQL by the backend.
//
// Faults raise platform::StoreError with the error class the logic's trap
// understands (see StoreError below). A Seek that misses is no fault: it
// sets noMatch().
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace platform {

// A field's value: Null, an integer, a floating number or a text.
// Null is distinct from the empty text.
class Value {
 public:
  Value() = default;  // Null
  Value(std::int64_t v) : v_(v) {}
  Value(int v) : v_(static_cast<std::int64_t>(v)) {}
  Value(double v) : v_(v) {}
  Value(std::string v) : v_(std::move(v)) {}
  Value(const char* v) : v_(std::string(v)) {}

  bool isNull() const { return std::holds_alternative<std::monostate>(v_); }
  bool isText() const { return std::holds_alternative<std::string>(v_); }
  bool isInteger() const { return std::holds_alternative<std::int64_t>(v_); }
  bool isReal() const { return std::holds_alternative<double>(v_); }

  // Conversions as a plain text-to-number conversion would do: a number's
  // text for asText, the leading number of a text for asInteger/asDouble,
  // 0 or "" for Null.
  std::string asText() const;
  std::int64_t asInteger() const;
  double asDouble() const;

  bool operator==(const Value& other) const = default;

 private:
  std::variant<std::monostate, std::int64_t, double, std::string> v_;
};

// Error numbers of the engine's faults, in the classes the trap knows:
//   3075  a query expression could not be evaluated (forgiven)
//   3633  a component of the engine could not be loaded (own message)
//   anything else is fatal; the backend uses these numbers:
//   3024 file not found, 3045 file already in use (a second copy),
//   3051 file cannot be opened (permissions, not a store), 3078 no such
//   table or query, 3265 no such field, 3021 no current record,
//   3022 duplicate key, 3027 store is read-only, 3049 store is damaged,
//   3015 no such index, 3019 Seek without a current index, 3020 Update
//   without AddNew or Edit, 3251 operation not supported by this kind of
//   recordset, 3314 a required field is Null, 3420 recordset or store closed,
//   3003 a transaction begun inside another, 3034 a commit or rollback with
//   no transaction begun.
struct StoreError : std::runtime_error {
  StoreError(long errorNumber, const std::string& description, std::string storeFile = "")
      : std::runtime_error(description), number(errorNumber), file(std::move(storeFile)) {}
  long number;
  std::string file;  // the store file concerned, when known
};

enum class RecordsetType { Table = 1, Dynaset = 2, Snapshot = 4 };

class Recordset {
 public:
  virtual ~Recordset() = default;

  // Table-type only: choose the index by name ("PrimaryKey" for the primary
  // key) and seek a row whose leading key columns equal the keys ("=" is the
  // only comparison the logic uses).
  virtual void setIndex(const std::string& indexName) = 0;
  virtual void seek(const std::string& comparison, const std::vector<Value>& keys) = 0;
  virtual bool noMatch() const = 0;

  virtual void moveFirst() = 0;
  virtual void moveNext() = 0;
  virtual void moveLast() = 0;
  virtual bool eof() const = 0;
  virtual bool bof() const = 0;
  // moveFirst/moveLast on an empty recordset leave it at EOF and BOF; a
  // moveNext at EOF is error 3021.
  // Table: the row count at once. Dynaset and snapshot: the rows visited so
  // far, right only after moveLast.
  virtual long recordCount() const = 0;

  // The current row's field; a name the source lacks is error 3265.
  virtual Value field(const std::string& name) const = 0;
  virtual int fieldCount() const = 0;
  virtual Value fieldAt(int i) const = 0;

  // Writes. addNew/edit start a change, setField fills it, update writes it
  // durably before it returns (inside a transaction: when the transaction
  // commits); remove deletes the current row.
  virtual void addNew() = 0;
  virtual void edit() = 0;
  virtual void setField(const std::string& name, const Value& value) = 0;
  virtual void update() = 0;
  virtual void remove() = 0;

  virtual void close() = 0;
};

class Database {
 public:
  virtual ~Database() = default;
  // source: a table name for RecordsetType::Table, a query text otherwise.
  virtual std::unique_ptr<Recordset> openRecordset(const std::string& source,
                                                   RecordsetType type) = 0;
  // Runs a statement that returns no rows (used by the build tools and the
  // creation of a new user store, never by screens).
  virtual void execute(const std::string& sql) = 0;
  virtual bool isReadOnly() const = 0;
  virtual const std::string& path() const = 0;
  virtual void close() = 0;

  // Transactions. Between beginTrans and commitTrans the writes of every
  // recordset of this store are held back; commitTrans makes them durable
  // all together before it returns, rollback drops them all. A process
  // killed at any moment leaves the store with either all of them or none.
  // One at a time: beginTrans inside a transaction is 3003, commitTrans or
  // rollback outside one 3034; on a read-only store beginTrans is 3027.
  // Use them through Transaction below.
  virtual void beginTrans() = 0;
  virtual void commitTrans() = 0;
  virtual void rollback() = 0;
};

// A transaction for the life of a scope: begun by the constructor, committed
// by commit(), rolled back by the destructor unless it was committed (a
// fault that unwinds the scope thus writes nothing). The destructor never
// throws: a rollback that fails, for instance because the store was closed
// meanwhile (which drops the transaction anyway), is let go.
class Transaction {
 public:
  explicit Transaction(Database& store) : store_(store) { store_.beginTrans(); }
  ~Transaction() {
    if (committed_) return;
    try {
      store_.rollback();
    } catch (...) {
    }
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit() {
    store_.commitTrans();
    committed_ = true;
  }

 private:
  Database& store_;
  bool committed_ = false;
};

class Workspace {
 public:
  virtual ~Workspace() = default;
  // exclusive: no other process may open the file while it is open here;
  // a second opener gets StoreError 3045. connect is accepted and ignored.
  virtual std::unique_ptr<Database> openDatabase(const std::string& path, bool exclusive,
                                                 bool readOnly,
                                                 const std::string& connect) = 0;
  // Creates a new store file from a schema text. The file is written under
  // a temporary name and renamed when complete, so a failed creation leaves
  // nothing that looks like a store. An existing file is never touched
  // (3045); a folder that cannot be written is 3051.
  virtual void createDatabase(const std::string& path, const std::string& schemaSql) = 0;
};

// Workspace 0 of the engine.
Workspace& defaultWorkspace();

}  // namespace platform
