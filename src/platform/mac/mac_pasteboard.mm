// Type-checked on Linux against GNUstep's headers and a declared shim; never run on macOS yet.
#import <AppKit/AppKit.h>

#include <optional>
#include <utility>

#include "platform/mac/mac_flavours.h"
#include "platform/mac/mac_main_thread.h"
#include "platform/mac/mac_pasteboard.h"
#include "platform/mac/mac_text.h"

namespace quill::platform::mac {
namespace {

constexpr JobLimits kLimits{std::chrono::seconds(3), std::chrono::seconds(3)};
constexpr std::chrono::milliseconds kPollInterval{10};

/// Does `work`, which gets the general pasteboard, on the main thread. An exception of AppKit's, as a lost
/// connection to the pasteboard server raises, counts as no answer in time.
template <class Work>
auto OnPasteboard(Work work) {
  using R = decltype(work(static_cast<NSPasteboard*>(nil)));
  auto answer = CallOnMainThread(kLimits, [work = std::move(work)]() -> std::optional<R> {
    @autoreleasepool {
      @try {
        return work([NSPasteboard generalPasteboard]);
      } @catch (NSException*) {
        return std::nullopt;
      }
    }
  });
  return answer ? std::move(*answer) : std::nullopt;
}

PasteboardGlance Look() {
  return OnPasteboard([](NSPasteboard* board) {
           return PasteboardGlance{[board changeCount], [[board types] count] > 0};
         })
      .value_or(PasteboardGlance{});
}

std::string BytesOf(NSData* data) {
  return {static_cast<const char*>([data bytes]), [data length]};
}

NSData* DataOf(const std::string& bytes) {
  return [NSData dataWithBytes:bytes.data() length:bytes.size()];
}

Result<std::string, ReadProblem> ReadForm(NSPasteboard* board, Flavour flavour) {
  NSString* type = ToNSString(TypeOfFlavour(flavour));
  if (![board availableTypeFromArray:@[ type ]]) return Failure{ReadProblem::Absent};
  std::string bytes;
  if (flavour == Flavour::Png) {
    NSData* data = [board dataForType:type];
    if (!data) return Failure{ReadProblem::OwnerSilent};
    bytes = BytesOf(data);
  } else {
    NSString* text = [board stringForType:type];
    if (!text) return Failure{ReadProblem::OwnerSilent};
    bytes = FromNSString(text);
  }
  if (bytes.size() > MacPasteboard::kLargest) return Failure{ReadProblem::TooLarge};
  return bytes;
}

bool WriteForm(NSPasteboard* board, Flavour flavour, const std::string& bytes) {
  NSString* type = ToNSString(TypeOfFlavour(flavour));
  NSString* text = flavour == Flavour::Png ? nil : ToNSString(bytes);
  if (flavour != Flavour::Png && !text) return false;
  [board clearContents];
  return text ? [board setString:text forType:type] : [board setData:DataOf(bytes) forType:type];
}

PasteboardSnapshot SaveAll(NSPasteboard* board) {
  PasteboardSnapshot snapshot;
  std::size_t index = 0;
  for (NSPasteboardItem* item in [board pasteboardItems]) {
    for (NSString* type in [item types]) {
      const ItemType name{index, FromNSString(type)};
      NSData* data = IsPromisedFile(name.type) ? nil : [item dataForType:type];
      if (!data || [data length] > MacPasteboard::kLargest) {
        snapshot.complete = false;
      } else {
        snapshot.flavours.push_back({SnapshotName(name), BytesOf(data)});
      }
    }
    ++index;
  }
  return snapshot;
}

/// The items of a snapshot, in its order.
NSArray* ItemsOf(const PasteboardSnapshot& snapshot) {
  NSMutableArray* items = [NSMutableArray array];
  std::optional<std::size_t> current;
  for (const FlavourData& flavour : snapshot.flavours) {
    const std::optional<ItemType> name = ParseSnapshotName(flavour.name);
    if (!name) continue;
    if (current != name->item) [items addObject:[[NSPasteboardItem alloc] init]];
    current = name->item;
    [[items lastObject] setData:DataOf(flavour.bytes) forType:ToNSString(name->type)];
  }
  return items;
}

/// Puts a snapshot back if nobody has written since the change count was `expected`; false if somebody has.
bool PutBack(NSPasteboard* board, const PasteboardSnapshot& snapshot, long expected) {
  if ([board changeCount] != expected) return false;
  NSArray* items = ItemsOf(snapshot);
  if ([items count] == 0 && !snapshot.complete) return false;
  [board clearContents];
  return [items count] == 0 || [board writeObjects:items];
}

}  // namespace

void MacPasteboard::Clear() {
  m_history.Marked(Look().changes);
}

bool MacPasteboard::WaitForNewContents(std::chrono::milliseconds deadline) {
  return m_poller.Until(deadline, kPollInterval, [this] { return m_history.Arrived(Look()); });
}

Result<std::string, ReadProblem> MacPasteboard::Read(Flavour flavour) {
  if (!m_history.Readable(Look().changes)) return Failure{ReadProblem::Absent};
  auto data = OnPasteboard([flavour](NSPasteboard* board) { return ReadForm(board, flavour); });
  return data ? std::move(*data) : Failure{ReadProblem::OwnerSilent};
}

bool MacPasteboard::Write(Flavour flavour, std::string_view bytes) {
  struct Written {
    bool complete;
    long changes;
  };
  const auto written = OnPasteboard([flavour, bytes = std::string(bytes)](NSPasteboard* board) {
    const bool complete = WriteForm(board, flavour, bytes);
    return Written{complete, [board changeCount]};
  });
  if (!written) return false;
  m_history.Written(written->changes, written->complete);
  return written->complete;
}

PasteboardSnapshot MacPasteboard::Save() {
  auto saved = OnPasteboard([](NSPasteboard* board) { return SaveAll(board); });
  return saved ? std::move(*saved) : PasteboardSnapshot{{}, false};
}

void MacPasteboard::Restore(const PasteboardSnapshot& snapshot) {
  if (m_history.Pasted() && m_settle) m_settle();
  const std::optional<long> expected = m_history.EndLoan();
  if (!expected) return;
  OnPasteboard(
      [snapshot, changes = *expected](NSPasteboard* board) { return PutBack(board, snapshot, changes); });
}

std::vector<std::string> MacPasteboard::FlavourNames() {
  return OnPasteboard([](NSPasteboard* board) {
           std::vector<std::string> names;
           for (NSString* type in [board types]) names.push_back(FromNSString(type));
           return names;
         })
      .value_or(std::vector<std::string>{});
}

}  // namespace quill::platform::mac
