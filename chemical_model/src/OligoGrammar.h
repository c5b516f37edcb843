#pragma once
namespace chem {
class OligoGrammar
{
};
} // namespace chem
