#include <array>

#include "core/key_names.h"

namespace core {
namespace {

struct NamedKey {
  int code;
  const char* name;
};

// The keys the game tests, by key code.
constexpr NamedKey kKeys[] = {
    {1, "Escape"},      {2, "1"},        {3, "2"},          {4, "3"},         {5, "4"},      {6, "5"},
    {7, "6"},           {8, "7"},        {9, "8"},          {10, "9"},        {11, "0"},     {12, "Minus"},
    {13, "Equals"},     {14, "Backspace"}, {16, "Q"},       {17, "W"},        {18, "E"},     {19, "R"},
    {20, "T"},          {21, "Y"},       {22, "U"},         {23, "I"},        {24, "O"},     {25, "P"},
    {28, "Return"},     {30, "A"},       {31, "S"},         {32, "D"},        {33, "F"},     {34, "G"},
    {35, "H"},          {36, "J"},       {37, "K"},         {38, "L"},        {39, "Semicolon"},
    {40, "Apostrophe"}, {42, "LShift"},  {44, "Z"},         {45, "X"},        {46, "C"},     {47, "V"},
    {48, "B"},          {49, "N"},       {50, "M"},         {52, "Period"},   {53, "Slash"}, {54, "RShift"},
    {57, "Space"},      {59, "F1"},      {68, "F10"},       {200, "Up"},      {203, "Left"}, {205, "Right"},
    {208, "Down"},
};

const std::array<const char*, 256>& NamesByCode() {
  static const std::array<const char*, 256> names = [] {
    std::array<const char*, 256> t{};
    for (const NamedKey& k : kKeys) t[k.code] = k.name;
    return t;
  }();
  return names;
}

}  // namespace

const char* KeyName(int code) {
  if (code < 0 || code > 255) return nullptr;
  return NamesByCode()[code];
}

int KeyCode(const std::string& name) {
  for (const NamedKey& k : kKeys) {
    if (name == k.name) return k.code;
  }
  return -1;
}

}  // namespace core
