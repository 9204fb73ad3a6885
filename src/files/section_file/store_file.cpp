#include "files/section_file/store_file.h"

#include <stdexcept>

#include "files/section_file/checksums.h"

namespace quill::section_file {
namespace {

constexpr std::size_t kHeaderSize = 1024;
constexpr Guid kSectionFileType = MakeGuid("7B5C52E4-D88C-4DA7-AEB1-5378D02996D3");
constexpr Guid kRevisionStoreFormat = MakeGuid("109ADD3F-911B-49F5-A5D0-1791EDC8AED8");
constexpr std::uint32_t kSectionFormatVersion = 0x2A;
constexpr Chunk kZero;

std::uint32_t NameCrc(std::u16string_view name) {
  ByteWriter units;
  for (const char16_t unit : name) units.U16(unit);
  return Crc(units.U16(0).bytes());
}

void PutVersions(ByteWriter& header) {
  for (int who = 0; who < 4; ++who) header.U32(kSectionFormatVersion);  // last, oldest, newest writer; reader
}

/// The fields of formats before the revision store, which have to say that there is nothing.
void PutLegacyFields(ByteWriter& header, std::uint32_t transactions) {
  PutReference32(header, kZero);     // fcrLegacyFreeChunkList
  PutReference32(header, kNowhere);  // fcrLegacyTransactionLog
  header.U32(transactions);          // cTransactionsInLog
  header.U32(0).Zeros(8);            // cbLegacyExpectedFileLength, rgbPlaceholder
  PutReference32(header, kNowhere);  // fcrLegacyFileNodeListRoot
  header.U32(0).Zeros(4);            // cbLegacyFreeSpaceInFreeChunkList, four flags
}

/// The header ([MS-ONESTORE] 2.3.1).
std::string Header(const FileIdentity& identity, const Chunk& log, const Chunk& rootList,
                   std::uint64_t fileSize) {
  ByteWriter header;
  header.Put(kSectionFileType).Put(identity.file).Put(Guid{}).Put(kRevisionStoreFormat);
  PutVersions(header);
  PutLegacyFields(header, 1);
  header.Put(Guid{}).U32(NameCrc(identity.name));  // guidAncestor: no table of contents; crcName
  PutReference64x32(header, kNowhere);             // fcrHashedChunkList
  PutReference64x32(header, log);                  // fcrTransactionLog
  PutReference64x32(header, rootList);             // fcrFileNodeListRoot
  PutReference64x32(header, kNowhere);             // fcrFreeChunkList
  header.U64(fileSize).U64(0);                     // cbExpectedFileLength, cbFreeSpaceInFreeChunkList
  header.Put(identity.version).U64(1);             // guidFileVersion, nFileVersionGeneration
  header.Put(identity.denyReadVersion).U32(0);     // guidDenyReadFileVersion, grfDebugLogFlags
  PutReference64x32(header, kZero);                // fcrDebugLog
  PutReference64x32(header, kZero);                // fcrAllocVerificationFreeChunkList
  header.Zeros(16).Zeros(728);                     // four build numbers, rgbReserved
  if (header.bytes().size() != kHeaderSize) throw std::logic_error("the header has not its fixed size");
  return header.bytes();
}

}  // namespace

StoreFile::StoreFile() {
  m_bytes.Zeros(kHeaderSize);
}

Chunk StoreFile::Place(std::string_view bytes) {
  const Chunk chunk{m_bytes.Align().bytes().size(), static_cast<std::uint32_t>(bytes.size())};
  m_bytes.Put(bytes);
  return chunk;
}

Chunk StoreFile::Place(const FileNodeList& list) {
  m_transaction.U32(list.number()).U32(list.count());
  return Place(list.Fragment());
}

/// One transaction that makes every list as long as it is ([MS-ONESTORE] 2.3.3); its last entry holds the
/// check over the others.
Chunk StoreFile::PlaceTransactionLog() {
  constexpr std::uint32_t kEndOfTransaction = 1;
  ByteWriter fragment;
  fragment.Put(m_transaction.bytes()).U32(kEndOfTransaction).U32(Crc(m_transaction.bytes()));
  return Place(PutReference64x32(fragment, kNowhere).bytes());
}

std::string StoreFile::Finish(const Chunk& rootList, const FileIdentity& identity) {
  const Chunk log = PlaceTransactionLog();
  m_bytes.Align();
  std::string file = m_bytes.bytes();
  return file.replace(0, kHeaderSize, Header(identity, log, rootList, file.size()));
}

}  // namespace quill::section_file
