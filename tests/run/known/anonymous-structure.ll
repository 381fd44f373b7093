; The body of a structure without a name stands at its first mention only, which may be inside another function.
define void @f() {
entry:
  %s = alloca { i32, i64 }
  ret void
}
define i32 @main() {
entry:
  %s = alloca { i32, i64 }
  %0 = getelementptr { i32, i64 }, { i32, i64 }* %s, i32 0, i32 0
  store i32 3, i32* %0
  ret i32 3
}
