; Constants carry no width: 1 << n is computed in an int, also for an i64 (and for an i32 where an int has 16 bits).
@n = global i64 36
define i32 @main() {
entry:
  %0 = load i64, i64* @n
  %shl = shl i64 1, %0
  %shr = lshr i64 %shl, 32
  %conv = trunc i64 %shr to i32
  ret i32 %conv
}
