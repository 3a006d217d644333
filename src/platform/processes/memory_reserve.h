#pragma once

/// Some memory set aside for the moment in which there is none left: enough to write copies of texts that lie in memory
/// already, and to show a message.
namespace memory_reserve {

/// Sets it aside. From then on the first allocation that fails gets it.
void Lay();

/// It has been needed. What is under way may still end well; then nothing is left but to end the program.
bool IsSpent();

/// For failures that C++ does not hear of. False if it was spent before.
bool Spend();

} // namespace memory_reserve
