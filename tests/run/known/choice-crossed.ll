; !b ? x : y, whose branch has the target cond.false first, comes out as b ? x : y: a ?: looks at the pairs of its phi only.
@b = global i8 0
define i32 @main() {
entry:
  %0 = load i8, i8* @b
  %tobool = trunc i8 %0 to i1
  br i1 %tobool, label %cond.false, label %cond.true
cond.true:
  br label %cond.end
cond.false:
  br label %cond.end
cond.end:
  %cond = phi i32 [ 1, %cond.true ], [ 2, %cond.false ]
  ret i32 %cond
}
