; Under -ll a store to an element of an array takes the array for the type of the destination and stores the low half.
@a = global [2 x i64] zeroinitializer
@x = global i64 5
define i32 @main() {
entry:
  %0 = load i64, i64* @x
  store i64 %0, i64* getelementptr ([2 x i64], [2 x i64]* @a, i32 0, i32 1)
  ret i32 3
}
