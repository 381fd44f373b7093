; A loop over a phi (an array of objects is constructed and destroyed so) tests before its body and so leaves out the last round.
@n = global i32 0
define i32 @main() {
entry:
  br label %loop.1
loop.1:
  %p = phi i32 [ 0, %entry ], [ %inc, %loop.1 ]
  %0 = load i32, i32* @n
  %add = add i32 %0, 1
  store i32 %add, i32* @n
  %inc = add i32 %p, 1
  %done = icmp eq i32 %inc, 3
  br i1 %done, label %loop.2, label %loop.1
loop.2:
  %1 = load i32, i32* @n
  ret i32 %1
}
