// The game's sound effects, rendered from the recipes in assets/sounds/effects.txt.
// Manifest args: TABLE-INDEX RECIPE.
#include <map>
#include <mutex>

#include "tools/assetgen/registry.h"
#include "tools/assetgen/sound_recipe.h"
#include "tools/assetgen/sound_wav.h"

namespace {

const std::map<std::string, assetgen::SoundRecipe>& Recipes(const std::string& assetsDir) {
  static std::map<std::string, std::map<std::string, assetgen::SoundRecipe>> cache;
  static std::mutex m;
  std::lock_guard<std::mutex> lock(m);
  auto it = cache.find(assetsDir);
  if (it == cache.end())
    it = cache.emplace(assetsDir, assetgen::ParseSoundRecipes(assetsDir + "/sounds/effects.txt")).first;
  return it->second;
}

}  // namespace

ASSETGEN_GENERATOR(sound_effect) {
  if (entry.kind != "wav" || entry.args.size() != 2) assetgen::Fail(entry, "expected: wav ... sound_effect INDEX RECIPE");
  const auto& recipes = Recipes(ctx.assetsDir);
  auto it = recipes.find(entry.args[1]);
  if (it == recipes.end()) assetgen::Fail(entry, "no effect recipe named " + entry.args[1]);
  const assetgen::Pcm pcm = assetgen::RenderSoundRecipe(it->second, assetgen::kSoundRate);
  if (pcm.s.empty()) assetgen::Fail(entry, "recipe renders nothing");
  assetgen::WriteWav(ctx.Out(entry.path), pcm);
}
