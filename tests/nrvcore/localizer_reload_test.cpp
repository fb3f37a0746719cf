#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/nrvcore/localizer.h"

using nrvcore::config::Localizer;

namespace {

template <class Operation>
Operation Find(void* library, const char* symbol) {
  void* const found = dlsym(library, symbol);
  EXPECT_NE(found, nullptr) << symbol;
  return reinterpret_cast<Operation>(found);
}

TEST(LocalizerReload, EachLoadOfTheLibraryReadsTheUsersLanguageAgain) {
  using Set = void (*)(Localizer*, const std::string&);
  setenv("LC_ALL", "de_AT.UTF-8", true);
  for (const char* language : {"de", static_cast<const char*>(nullptr)}) {
    language ? setenv("LANGUAGE", language, true) : unsetenv("LANGUAGE");
    for (const char* chosen : {"ja", ""}) {
      void* const library = dlopen(NRVCORE, RTLD_NOW);
      ASSERT_NE(library, nullptr) << dlerror();
      Localizer* const localizer =
          &Find<Localizer& (*)()>(library, "_ZN7nrvcore6config9Localizer3GetEv")();
      const std::string prefix = "_ZN7nrvcore6config9Localizer";
      const std::string argument = "ERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE";
      Find<Set>(library, (prefix + "13SetCatalogues" + argument).c_str())(localizer, CATALOGUES);
      Find<Set>(library, (prefix + "11SetLanguage" + argument).c_str())(localizer, chosen);
      EXPECT_STREQ(std::getenv("LANGUAGE"), *chosen ? "ja:C" : "de:C");
      dlclose(library);
      EXPECT_EQ(dlopen(NRVCORE, RTLD_NOW | RTLD_NOLOAD), nullptr) << "it stays in the process";
    }
  }
}

}  // namespace
