// Opening a query of the catalogue with the error trap's rule for query
// texts: a text the engine cannot evaluate (3075) is forgiven, logged, and
// the statement that opened it simply has no effect.
// Keeps no state.
#pragma once

#include <memory>
#include <string>

#include "platform/store.h"

// The recordset of `text` on `store`, or nullptr when the text could not be
// evaluated (after sRaiseError has logged the forgiven fault). Every other
// store fault goes on to the trap.
std::unique_ptr<platform::Recordset> fOpenQuery(platform::Database& store, const std::string& text);
