#pragma once
#include <cstdint>

#include "files/section_file/guid.h"

namespace quill::section_file {

// Everything that another program would take from the clock or from chance, so that the file is always the
// same.

inline constexpr Guid kFileGuid = MakeGuid("3805DEE6-46AF-4456-A83B-7ECADD1D1BD1");
inline constexpr Guid kFileVersionGuid = MakeGuid("DAC5CCCD-25FE-4869-81E9-0378304C08DF");
inline constexpr Guid kDenyReadVersionGuid = MakeGuid("DE45D9AF-8D48-4BF8-AA4E-8A128AABE158");
inline constexpr Guid kSectionEntityGuid = MakeGuid("432F4692-CD95-4014-8CD3-0F369A92ABEB");
inline constexpr Guid kPageEntityGuid = MakeGuid("D0B6EA9B-5375-42B7-AA37-9103669DCE5D");
inline constexpr Guid kSectionObjects = MakeGuid("C96F102E-F529-495A-9C22-E6D6B0118523");
inline constexpr Guid kPageObjects = MakeGuid("892B9BE4-0ED7-41AE-80B9-6AF514BB0619");

inline constexpr ExtendedGuid kSectionSpace{MakeGuid("D0EB7787-2E32-47D0-9146-AAC9D0206CC4"), 1};
inline constexpr ExtendedGuid kSectionRevision{MakeGuid("02600C2F-B61F-4ECC-9886-F92FBA9774E4"), 1};
inline constexpr ExtendedGuid kSectionGroup{MakeGuid("85F09BA0-97B9-42E6-8884-3A156347C720"), 1};
inline constexpr ExtendedGuid kPageSpace{MakeGuid("91F0BBAD-3444-491C-B131-8EC5F210585D"), 1};
inline constexpr ExtendedGuid kPageRevision{MakeGuid("17FAB393-CAC9-43D5-A671-E889C64D1469"), 1};
inline constexpr ExtendedGuid kPageGroup{MakeGuid("6A1C0E57-2B0B-4D7C-9F3E-5D0A4B7E9C12"), 1};

/// The beginning of 2024 (UTC) in its two forms: seconds since 1980, and steps of 100 ns since 1601.
inline constexpr std::uint32_t kTime = 1'388'534'400;
inline constexpr std::uint64_t kFileTime = 133'485'408'000'000'000;

}  // namespace quill::section_file
