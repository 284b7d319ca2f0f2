#pragma once

/// The one seam for what the system may refuse. The test program puts functions of its own before
/// the C library's calls on files and its memory, so every such call of the product passes here.
namespace refhost::test {

enum class Fault {
    None,
    CallFails,        ///< the n-th call on files answers an error
    ProgramDies,      ///< the program is gone before the n-th call on files
    AllocationFails,  ///< the n-th allocation finds no memory
};

constexpr int kDied = 99;  ///< the exit code of Fault::ProgramDies

/// From now on the `n`-th call strikes, from 1. Calls are counted in any case.
void Arm(Fault fault, int n);
/// Answers the calls counted: on files, or allocations after Fault::AllocationFails.
int Disarm();

}  // namespace refhost::test
