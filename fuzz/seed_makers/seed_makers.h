#pragma once

#include "seed_makers/seed_folder.h"

/// One function for each fuzz target whose seeds are made: the same seeds on every run.
namespace HarrowSupport::Fuzzing
{

/// Content streams of random documents, and streams of random operators.
void MakeContentSeeds(const SeedFolder& folder);

/// Whole files of random documents, without compression, so that a changed byte is a changed word.
void MakeFileSeeds(const SeedFolder& folder);

/// Optional content properties of random documents.
void MakeLayersSeeds(const SeedFolder& folder);

} // namespace HarrowSupport::Fuzzing
