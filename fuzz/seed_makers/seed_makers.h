#pragma once

#include "seed_makers/seed_folder.h"

/// One function for each fuzz target whose seeds are made: the same seeds on every run.
namespace HarrowSupport::Fuzzing
{

/// CMap files whose codes are of all lengths.
void MakeCMapSeeds(const SeedFolder& folder);

/// Content streams of random documents, and streams of random operators.
void MakeContentSeeds(const SeedFolder& folder);

/// Whole files of random documents, without compression, so that a changed byte is a changed word.
void MakeFileSeeds(const SeedFolder& folder);

/// Data of each filter that an encoder makes of random bytes.
void MakeFiltersSeeds(const SeedFolder& folder);

/// Font programs of each kind, alone and in font dictionaries of each kind.
void MakeFontSeeds(const SeedFolder& folder);

/// Random functions of each type.
void MakeFunctionSeeds(const SeedFolder& folder);

/// Optional content properties of random documents.
void MakeLayersSeeds(const SeedFolder& folder);

} // namespace HarrowSupport::Fuzzing
