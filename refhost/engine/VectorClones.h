#pragma once

/// Marks a function whose loops gain from wider vector registers: where the tool chain can, it is
/// compiled twice and the variant that the processor supports is taken when the program starts.
/// The figures are the same bits either way: no variant fuses or reorders operations.
#if defined(__x86_64__) && defined(__linux__) && defined(__GNUC__) && !defined(__clang__)
#define KESTREL_VECTOR_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define KESTREL_VECTOR_CLONES
#endif
