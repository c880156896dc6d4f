#pragma once
// ZDepoCount: the quantity type of the margin engine.
//
// A number of securities, lots or money units. The trading core hands it over
// as a 64-bit integer with a decimal scale; the engine keeps it as a double in
// natural units and compares with its own strict tolerance of 1e-9, a hundred
// times tighter than the 1e-7 of the free comparison helpers (MIsEqual and
// family). The two tolerances are different on purpose: do not merge them.
//
// Only the value takes part in comparison and arithmetic. The scale travels
// with the value as each operation states, and decides nothing but the
// default integer form (asInt64). Two fields, no virtual table: the type is
// passed by value in the inner loops of risk aggregation.
#include <cstdint>
#include <type_traits>

class ZDepoCount {
 public:
  // a and b are near when -kTolerance < a - b < kTolerance (strict both ways).
  static constexpr double kTolerance = 1e-9;

  constexpr ZDepoCount() : Value(0.0), QtyScale(0) {}
  // A value in natural units; scale 0. Implicit, so that a factor or a
  // literal takes part in arithmetic and comparison as a quantity.
  constexpr ZDepoCount(double value) : Value(value), QtyScale(0) {}  // NOLINT
  // The exchange form: scaled / 10^scale; the scale is kept.
  ZDepoCount(long scaled, short scale);
  constexpr ZDepoCount(const ZDepoCount&) = default;
  constexpr ZDepoCount& operator=(const ZDepoCount&) = default;

  constexpr double asDouble() const { return Value; }
  // The integer form at the quantity's own scale.
  int64_t asInt64() const { return GetScaled(QtyScale); }
  // The value times 10^scale, truncated towards zero after forgiving a
  // representation error of 1e-7; saturates at the 64-bit limits instead of
  // overflowing. A not-a-number value gives 0.
  int64_t GetScaled(short scale) const;

  constexpr void SetQtyScale(short scale) { QtyScale = scale; }
  constexpr short GetQtyScale() const { return QtyScale; }

  // Arithmetic reads the values only; the left operand keeps its scale.
  constexpr ZDepoCount& operator+=(const ZDepoCount& r) { Value += r.Value; return *this; }
  constexpr ZDepoCount& operator-=(const ZDepoCount& r) { Value -= r.Value; return *this; }
  constexpr ZDepoCount& operator*=(const ZDepoCount& r) { Value *= r.Value; return *this; }
  constexpr ZDepoCount operator+(const ZDepoCount& r) const { return WithValue(Value + r.Value); }
  constexpr ZDepoCount operator-(const ZDepoCount& r) const { return WithValue(Value - r.Value); }
  constexpr ZDepoCount operator*(const ZDepoCount& r) const { return WithValue(Value * r.Value); }
  // The scale is dropped: the result has scale 0.
  constexpr ZDepoCount operator-() const { return ZDepoCount(-Value); }

  // Comparison with the strict tolerance; a is the left operand.
  friend constexpr bool operator==(const ZDepoCount& a, const ZDepoCount& b) { return Near(a.Value, b.Value); }
  friend constexpr bool operator!=(const ZDepoCount& a, const ZDepoCount& b) { return !Near(a.Value, b.Value); }
  friend constexpr bool operator<(const ZDepoCount& a, const ZDepoCount& b) {
    return Near(a.Value, b.Value) ? false : b.Value > a.Value;
  }
  friend constexpr bool operator>(const ZDepoCount& a, const ZDepoCount& b) {
    return Near(a.Value, b.Value) ? false : a.Value > b.Value;
  }
  friend constexpr bool operator<=(const ZDepoCount& a, const ZDepoCount& b) {
    return Near(a.Value, b.Value) ? true : !(a.Value > b.Value);
  }
  friend constexpr bool operator>=(const ZDepoCount& a, const ZDepoCount& b) {
    return Near(a.Value, b.Value) ? true : !(b.Value > a.Value);
  }

  constexpr bool isZero() const { return Near(Value, 0.0); }
  constexpr bool isLTZero() const { return isZero() ? false : Value < 0.0; }
  constexpr bool isGTZero() const { return isZero() ? false : Value > 0.0; }
  constexpr bool isLEZero() const { return isZero() ? true : Value < 0.0; }
  constexpr bool isGEZero() const { return isZero() ? true : Value > 0.0; }

  // Selection. Each returns the chosen operand whole, value and scale, so
  // the scale of the result tells which operand won.
  //
  // Abs: a value near 0 is returned unchanged (a tiny negative stays
  // negative); a negative one is negated with scale 0.
  static constexpr ZDepoCount Abs(const ZDepoCount& x) {
    if (x.isZero()) return x;
    return x.Value < 0.0 ? ZDepoCount(-x.Value) : x;
  }
  // Negative: the value if clearly below 0, otherwise zero.
  static constexpr ZDepoCount Negative(const ZDepoCount& x) {
    if (x.isZero() || x.Value > 0.0) return ZDepoCount();
    return x;
  }
  // Positive: zero if clearly below 0, otherwise the value; a tiny negative
  // value near 0 passes through as it is.
  static constexpr ZDepoCount Positive(const ZDepoCount& x) {
    if (x.isZero()) return x;
    return x.Value < 0.0 ? ZDepoCount() : x;
  }
  constexpr ZDepoCount Abs() const { return Abs(*this); }
  constexpr ZDepoCount Negative() const { return Negative(*this); }
  constexpr ZDepoCount Positive() const { return Positive(*this); }

  // On a tie Max keeps its first operand and Min its second.
  static constexpr ZDepoCount Max(const ZDepoCount& a, const ZDepoCount& b) {
    if (Near(a.Value, b.Value)) return a;
    return b.Value > a.Value ? b : a;
  }
  static constexpr ZDepoCount Max(const ZDepoCount& a, const ZDepoCount& b, const ZDepoCount& c) {
    return Max(Max(a, b), c);
  }
  static constexpr ZDepoCount Max(const ZDepoCount& a, const ZDepoCount& b, const ZDepoCount& c,
                                  const ZDepoCount& d) {
    return Max(Max(a, b), Max(c, d));
  }
  static constexpr ZDepoCount Min(const ZDepoCount& a, const ZDepoCount& b) {
    if (Near(a.Value, b.Value)) return b;
    return b.Value > a.Value ? a : b;
  }

  // Rounding of a plain number to digits decimals; the result has scale 0.
  // Trunc cuts towards zero, RoundUp away from zero; both forgive a
  // representation error of 1e-7 in scaled units.
  static ZDepoCount Trunc(double x, int digits);
  static ZDepoCount RoundUp(double x, int digits);

 private:
  static constexpr bool Near(double a, double b) {
    const double d = a - b;
    return -kTolerance < d && d < kTolerance;
  }
  constexpr ZDepoCount WithValue(double v) const {
    ZDepoCount r(v);
    r.QtyScale = QtyScale;
    return r;
  }

  double Value;    // the quantity in natural units, the scale already applied
  short QtyScale;  // decimal places of the integer form; 0 unless set
};

static_assert(!std::is_polymorphic_v<ZDepoCount>, "ZDepoCount must have no virtual table");
static_assert(std::is_trivially_copyable_v<ZDepoCount>, "ZDepoCount is passed by value");
static_assert(sizeof(ZDepoCount) == sizeof(double) + sizeof(double), "two fields: a double and a short");

// Zero with scale 0.
inline constexpr ZDepoCount ZDepoCount_ZERO{0.0};
// The mark of a quantity that was not given (-1, scale 0).
inline constexpr ZDepoCount ZDepoCount_MINUS1{-1.0};
