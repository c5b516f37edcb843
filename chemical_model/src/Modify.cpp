namespace chem {
} // namespace chem
