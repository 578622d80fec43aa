// The variables of a state by name, for fronts that print them: one table a slice, beside its struct, and one way to go
// through all of them. A variable that its table leaves out does not compile.
#pragma once

#include <cstddef>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace noldarz {

/// A variable by name.
template <class Slice, class Value>
struct Variable {
  std::string_view name;
  Value Slice::*member;
};
template <class Slice, class Value>
Variable(const char*, Value Slice::*) -> Variable<Slice, Value>;

/// The table of a slice: a tuple with a Variable for each member.
template <class Slice>
inline constexpr std::nullptr_t variablesOf = nullptr;

// NOLDARZ_VARIABLES(Slice, a, b, ...) writes the table of a slice, by a macro that calls itself for the names that are
// left.
#define NOLDARZ_VARIABLES(SLICE, ...)                     \
  template <>                                             \
  inline constexpr auto variablesOf<SLICE> = std::tuple { \
    NOLDARZ_EXPAND(NOLDARZ_EACH(SLICE, __VA_ARGS__))      \
  }
#define NOLDARZ_EACH(SLICE, NAME, ...) \
  Variable{#NAME, &SLICE::NAME} __VA_OPT__(, NOLDARZ_AGAIN NOLDARZ_PARENS(SLICE, __VA_ARGS__))
#define NOLDARZ_AGAIN() NOLDARZ_EACH
#define NOLDARZ_PARENS ()
#define NOLDARZ_EXPAND(...) NOLDARZ_EXPAND3(NOLDARZ_EXPAND3(NOLDARZ_EXPAND3(__VA_ARGS__)))
#define NOLDARZ_EXPAND3(...) NOLDARZ_EXPAND2(NOLDARZ_EXPAND2(NOLDARZ_EXPAND2(__VA_ARGS__)))
#define NOLDARZ_EXPAND2(...) NOLDARZ_EXPAND1(NOLDARZ_EXPAND1(NOLDARZ_EXPAND1(__VA_ARGS__)))
#define NOLDARZ_EXPAND1(...) __VA_ARGS__

/// Slices as one state.
template <class... Slices>
struct Joined : Slices... {};

namespace internal {

struct Anything {
  template <class T>
  operator T() const;  // NOLINT(google-explicit-constructor): it stands for a member of any type
};

template <class Aggregate, class... Members>
consteval std::size_t memberCount() {
  if constexpr (requires { Aggregate{Members{}..., Anything{}}; })
    return memberCount<Aggregate, Members..., Anything>();
  else
    return sizeof...(Members);
}

}  // namespace internal

/// Calls each(name, value) for every variable of a slice.
template <class Slice, class Each>
void visit(const Slice& slice, Each&& each) {
  constexpr auto& variables = variablesOf<Slice>;
  static_assert(std::tuple_size_v<std::remove_cvref_t<decltype(variables)>> == internal::memberCount<Slice>(),
                "a variable of this slice has no name");
  std::apply([&](const auto&... variable) { (each(variable.name, slice.*variable.member), ...); }, variables);
}

/// The same for every slice of a state.
template <class... Slices, class Each>
void visitAll(const Joined<Slices...>& state, Each&& each) {
  const auto go = [&each]<class Slice>(const Slice& slice) {
    if constexpr (requires { visitAll(slice, each); })
      visitAll(slice, each);
    else
      visit(slice, each);
  };
  (go(static_cast<const Slices&>(state)), ...);
}

}  // namespace noldarz
