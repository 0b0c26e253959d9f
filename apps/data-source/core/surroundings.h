// What the data source asks of the system and of its window, so that its rules run without either.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "apps/data-source/core/negotiation.h"
#include "apps/data-source/twain_protocol.h"

namespace data_source {

// Memory that passes between application and source by its handle.
class SharedMemory {
 public:
  virtual ~SharedMemory() = default;
  virtual twain::Handle Allocate(std::size_t size) = 0;  // null where memory is short
  virtual void Free(twain::Handle handle) = 0;
  virtual void* Lock(twain::Handle handle) = 0;  // null for none of its handles
  virtual void Unlock(twain::Handle handle) = 0;
  virtual std::size_t Size(twain::Handle handle) = 0;
  // The functions of a manager that has its own.
  virtual void Borrow(const twain::EntryPoint& functions) = 0;
};

// The way to the application.
class Messenger {
 public:
  virtual ~Messenger() = default;
  // Before the first message and behind the last one.
  virtual bool Open() = 0;
  virtual void Close() = 0;
  // Calls DataSource::Deliver once the present call has returned to the application.
  virtual void DeliverLater(std::uint16_t message) = 0;
  // Calls the manager. False where there is none.
  virtual bool CallManager(twain::Identity& self, std::uint16_t message) = 0;
};

struct DialogOrder {
  twain::Handle parent;  // may be null
  bool isModal;          // the parent is disabled meanwhile
  bool onlySettings;     // nothing is scanned
  const Negotiation& agreed;
};

// The window with preview, panel and buttons.
class SourceDialog {
 public:
  virtual ~SourceDialog() = default;
  // False when it can't stand; `trouble` is a sentence that says why.
  virtual bool Open(const DialogOrder& order, std::string& trouble) = 0;
  virtual void Close() = 0;
  // While images are transferred a person can press nothing.
  virtual void SetBusy(bool isBusy) = 0;
  // Whether the system's message was one of its windows'; it has been carried out then.
  virtual bool TakeEvent(twain::Handle event) = 0;
};

}  // namespace data_source
