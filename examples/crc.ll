; ModuleID = 'crc.cpp'
source_filename = "crc.cpp"
target datalayout = "e-m:e-p:16:16-i32:16-i64:16-f32:16-f64:16-a:8-n8:16-S16"
target triple = "msp430"

%struct.Frame = type { i8, i8, [12 x i8], i16 }

@_ZN3crcL5stepsE = internal constant [16 x i16] [i16 0, i16 4129, i16 8258, i16 12387, i16 16516, i16 20645, i16 24774, i16 28903, i16 -32504, i16 -28375, i16 -24246, i16 -20117, i16 -15988, i16 -11859, i16 -7730, i16 -3601], align 2
@_ZL7samples = internal constant { { i8, i8, { i8, i8, i8, i8, [8 x i8] }, i16 }, { i8, i8, { i8, i8, i8, [9 x i8] }, i16 } } { { i8, i8, { i8, i8, i8, i8, [8 x i8] }, i16 } { i8 1, i8 4, { i8, i8, i8, i8, [8 x i8] } { i8 112, i8 105, i8 110, i8 103, [8 x i8] zeroinitializer }, i16 0 }, { i8, i8, { i8, i8, i8, [9 x i8] }, i16 } { i8 2, i8 3, { i8, i8, i8, [9 x i8] } { i8 1, i8 2, i8 3, [9 x i8] zeroinitializer }, i16 -21075 } }, align 2

; Function Attrs: mustprogress noinline nounwind optnone
define i16 @_ZN3crc3addEjh(i16 %sum, i8 zeroext %data) #0 {
entry:
  %sum.addr = alloca i16, align 2
  %data.addr = alloca i8, align 1
  store i16 %sum, i16* %sum.addr, align 2
  store i8 %data, i8* %data.addr, align 1
  %0 = load i16, i16* %sum.addr, align 2
  %shr = lshr i16 %0, 12
  %1 = load i8, i8* %data.addr, align 1
  %conv = zext i8 %1 to i16
  %shr1 = ashr i16 %conv, 4
  %xor = xor i16 %shr, %shr1
  %arrayidx = getelementptr inbounds [16 x i16], [16 x i16]* @_ZN3crcL5stepsE, i16 0, i16 %xor
  %2 = load i16, i16* %arrayidx, align 2
  %3 = load i16, i16* %sum.addr, align 2
  %shl = shl i16 %3, 4
  %xor2 = xor i16 %2, %shl
  store i16 %xor2, i16* %sum.addr, align 2
  %4 = load i16, i16* %sum.addr, align 2
  %shr3 = lshr i16 %4, 12
  %5 = load i8, i8* %data.addr, align 1
  %conv4 = zext i8 %5 to i16
  %and = and i16 %conv4, 15
  %xor5 = xor i16 %shr3, %and
  %arrayidx6 = getelementptr inbounds [16 x i16], [16 x i16]* @_ZN3crcL5stepsE, i16 0, i16 %xor5
  %6 = load i16, i16* %arrayidx6, align 2
  %7 = load i16, i16* %sum.addr, align 2
  %shl7 = shl i16 %7, 4
  %xor8 = xor i16 %6, %shl7
  ret i16 %xor8
}

; Function Attrs: mustprogress noinline nounwind optnone
define i16 @_ZN3crc2ofEPKhi(i8* %data, i16 %length) #0 {
entry:
  %data.addr = alloca i8*, align 2
  %length.addr = alloca i16, align 2
  %sum = alloca i16, align 2
  store i8* %data, i8** %data.addr, align 2
  store i16 %length, i16* %length.addr, align 2
  store i16 -1, i16* %sum, align 2
  br label %while.cond

while.cond:
  %0 = load i16, i16* %length.addr, align 2
  %dec = add nsw i16 %0, -1
  store i16 %dec, i16* %length.addr, align 2
  %cmp = icmp sgt i16 %0, 0
  br i1 %cmp, label %while.body, label %while.end

while.body:
  %1 = load i16, i16* %sum, align 2
  %2 = load i8*, i8** %data.addr, align 2
  %incdec.ptr = getelementptr inbounds i8, i8* %2, i32 1
  store i8* %incdec.ptr, i8** %data.addr, align 2
  %3 = load i8, i8* %2, align 1
  %call = call i16 @_ZN3crc3addEjh(i16 %1, i8 zeroext %3)
  store i16 %call, i16* %sum, align 2
  br label %while.cond

while.end:
  %4 = load i16, i16* %sum, align 2
  ret i16 %4
}

; Function Attrs: mustprogress noinline nounwind optnone
define i16 @_ZN3crc4slowEPKhi(i8* %data, i16 %length) #0 {
entry:
  %data.addr = alloca i8*, align 2
  %length.addr = alloca i16, align 2
  %sum = alloca i16, align 2
  %i = alloca i16, align 2
  %bit = alloca i16, align 2
  store i8* %data, i8** %data.addr, align 2
  store i16 %length, i16* %length.addr, align 2
  store i16 -1, i16* %sum, align 2
  store i16 0, i16* %i, align 2
  br label %for.cond

for.cond:
  %0 = load i16, i16* %i, align 2
  %1 = load i16, i16* %length.addr, align 2
  %cmp = icmp slt i16 %0, %1
  br i1 %cmp, label %for.body, label %for.end9

for.body:
  %2 = load i8*, i8** %data.addr, align 2
  %3 = load i16, i16* %i, align 2
  %arrayidx = getelementptr inbounds i8, i8* %2, i16 %3
  %4 = load i8, i8* %arrayidx, align 1
  %conv = zext i8 %4 to i16
  %shl = shl i16 %conv, 8
  %5 = load i16, i16* %sum, align 2
  %xor = xor i16 %5, %shl
  store i16 %xor, i16* %sum, align 2
  store i16 0, i16* %bit, align 2
  br label %for.cond1

for.cond1:
  %6 = load i16, i16* %bit, align 2
  %cmp2 = icmp slt i16 %6, 8
  br i1 %cmp2, label %for.body3, label %for.end

for.body3:
  %7 = load i16, i16* %sum, align 2
  %and = and i16 %7, -32768
  %tobool = icmp ne i16 %and, 0
  br i1 %tobool, label %if.then, label %if.else

if.then:
  %8 = load i16, i16* %sum, align 2
  %shl4 = shl i16 %8, 1
  %xor5 = xor i16 %shl4, 4129
  store i16 %xor5, i16* %sum, align 2
  br label %if.end

if.else:
  %9 = load i16, i16* %sum, align 2
  %shl6 = shl i16 %9, 1
  store i16 %shl6, i16* %sum, align 2
  br label %if.end

if.end:
  br label %for.inc

for.inc:
  %10 = load i16, i16* %bit, align 2
  %inc = add nsw i16 %10, 1
  store i16 %inc, i16* %bit, align 2
  br label %for.cond1

for.end:
  br label %for.inc7

for.inc7:
  %11 = load i16, i16* %i, align 2
  %inc8 = add nsw i16 %11, 1
  store i16 %inc8, i16* %i, align 2
  br label %for.cond

for.end9:
  %12 = load i16, i16* %sum, align 2
  ret i16 %12
}

; Function Attrs: mustprogress noinline nounwind optnone
define i16 @fletcher(i8* %data, i16 %length) #0 {
entry:
  %data.addr = alloca i8*, align 2
  %length.addr = alloca i16, align 2
  %low = alloca i16, align 2
  %high = alloca i16, align 2
  %i = alloca i16, align 2
  store i8* %data, i8** %data.addr, align 2
  store i16 %length, i16* %length.addr, align 2
  store i16 0, i16* %low, align 2
  store i16 0, i16* %high, align 2
  store i16 0, i16* %i, align 2
  br label %for.cond

for.cond:
  %0 = load i16, i16* %i, align 2
  %1 = load i16, i16* %length.addr, align 2
  %cmp = icmp slt i16 %0, %1
  br i1 %cmp, label %for.body, label %for.end

for.body:
  %2 = load i16, i16* %low, align 2
  %3 = load i8*, i8** %data.addr, align 2
  %4 = load i16, i16* %i, align 2
  %arrayidx = getelementptr inbounds i8, i8* %3, i16 %4
  %5 = load i8, i8* %arrayidx, align 1
  %conv = zext i8 %5 to i16
  %add = add i16 %2, %conv
  %rem = urem i16 %add, 255
  store i16 %rem, i16* %low, align 2
  %6 = load i16, i16* %high, align 2
  %7 = load i16, i16* %low, align 2
  %add1 = add i16 %6, %7
  %rem2 = urem i16 %add1, 255
  store i16 %rem2, i16* %high, align 2
  br label %for.inc

for.inc:
  %8 = load i16, i16* %i, align 2
  %inc = add nsw i16 %8, 1
  store i16 %inc, i16* %i, align 2
  br label %for.cond

for.end:
  %9 = load i16, i16* %high, align 2
  %shl = shl i16 %9, 8
  %10 = load i16, i16* %low, align 2
  %or = or i16 %shl, %10
  ret i16 %or
}

; Function Attrs: mustprogress noinline nounwind optnone
define i16 @count_good() #0 {
entry:
  %count = alloca i16, align 2
  %__range1 = alloca [2 x %struct.Frame]*, align 2
  %__begin1 = alloca %struct.Frame*, align 2
  %__end1 = alloca %struct.Frame*, align 2
  %sample = alloca %struct.Frame*, align 2
  %agg.tmp = alloca %struct.Frame, align 2
  store i16 0, i16* %count, align 2
  store [2 x %struct.Frame]* bitcast ({ { i8, i8, { i8, i8, i8, i8, [8 x i8] }, i16 }, { i8, i8, { i8, i8, i8, [9 x i8] }, i16 } }* @_ZL7samples to [2 x %struct.Frame]*), [2 x %struct.Frame]** %__range1, align 2
  store %struct.Frame* getelementptr inbounds ([2 x %struct.Frame], [2 x %struct.Frame]* bitcast ({ { i8, i8, { i8, i8, i8, i8, [8 x i8] }, i16 }, { i8, i8, { i8, i8, i8, [9 x i8] }, i16 } }* @_ZL7samples to [2 x %struct.Frame]*), i16 0, i16 0), %struct.Frame** %__begin1, align 2
  store %struct.Frame* getelementptr inbounds ([2 x %struct.Frame], [2 x %struct.Frame]* bitcast ({ { i8, i8, { i8, i8, i8, i8, [8 x i8] }, i16 }, { i8, i8, { i8, i8, i8, [9 x i8] }, i16 } }* @_ZL7samples to [2 x %struct.Frame]*), i64 1, i16 0), %struct.Frame** %__end1, align 2
  br label %for.cond

for.cond:
  %0 = load %struct.Frame*, %struct.Frame** %__begin1, align 2
  %1 = load %struct.Frame*, %struct.Frame** %__end1, align 2
  %cmp = icmp ne %struct.Frame* %0, %1
  br i1 %cmp, label %for.body, label %for.end

for.body:
  %2 = load %struct.Frame*, %struct.Frame** %__begin1, align 2
  store %struct.Frame* %2, %struct.Frame** %sample, align 2
  %3 = load %struct.Frame*, %struct.Frame** %sample, align 2
  %4 = bitcast %struct.Frame* %agg.tmp to i8*
  %5 = bitcast %struct.Frame* %3 to i8*
  call void @llvm.memcpy.p0i8.p0i8.i16(i8* align 2 %4, i8* align 2 %5, i16 16, i1 false)
  %call = call i16 @_ZL5check5Frame(%struct.Frame* byval align 2 %agg.tmp)
  %cmp1 = icmp eq i16 %call, 0
  br i1 %cmp1, label %if.then, label %if.end

if.then:
  %6 = load i16, i16* %count, align 2
  %inc = add nsw i16 %6, 1
  store i16 %inc, i16* %count, align 2
  br label %if.end

if.end:
  br label %for.inc

for.inc:
  %7 = load %struct.Frame*, %struct.Frame** %__begin1, align 2
  %incdec.ptr = getelementptr inbounds %struct.Frame, %struct.Frame* %7, i32 1
  store %struct.Frame* %incdec.ptr, %struct.Frame** %__begin1, align 2
  br label %for.cond

for.end:
  %8 = load i16, i16* %count, align 2
  ret i16 %8
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal i16 @_ZL5check5Frame(%struct.Frame* byval align 2 %frame) #0 {
entry:
  %tmp = alloca i1
  %retval = alloca i16, align 2
  %length = getelementptr inbounds %struct.Frame, %struct.Frame* %frame, i32 0, i32 1
  %0 = load i8, i8* %length, align 1
  %conv = zext i8 %0 to i16
  %cmp = icmp ugt i16 %conv, 12
  br i1 %cmp, label %if.then, label %if.end

if.then:
  store i16 1, i16* %retval, align 2
  br label %return

if.end:
  %data = getelementptr inbounds %struct.Frame, %struct.Frame* %frame, i32 0, i32 2
  %arraydecay = getelementptr inbounds [12 x i8], [12 x i8]* %data, i16 0, i16 0
  %length1 = getelementptr inbounds %struct.Frame, %struct.Frame* %frame, i32 0, i32 1
  %1 = load i8, i8* %length1, align 1
  %conv2 = zext i8 %1 to i16
  %call = call i16 @_ZN3crc2ofEPKhi(i8* %arraydecay, i16 %conv2)
  %sum = getelementptr inbounds %struct.Frame, %struct.Frame* %frame, i32 0, i32 3
  %2 = load i16, i16* %sum, align 2
  %cmp3 = icmp eq i16 %call, %2
  store i1 %cmp3, i1* %tmp
  %5 = load i1, i1* %tmp
  %3 = zext i1 %5 to i64
  %6 = load i1, i1* %tmp
  %cond = select i1 %6, i16 0, i16 2
  store i16 %cond, i16* %retval, align 2
  br label %return

return:
  %4 = load i16, i16* %retval, align 2
  ret i16 %4
}

; Function Attrs: argmemonly nofree nounwind willreturn
declare void @llvm.memcpy.p0i8.p0i8.i16(i8* noalias nocapture writeonly, i8* noalias nocapture readonly, i16, i1) #1

; Function Attrs: mustprogress noinline nounwind optnone
define zeroext i1 @tables_agree(i8* %data, i16 %length) #0 {
entry:
  %data.addr = alloca i8*, align 2
  %length.addr = alloca i16, align 2
  store i8* %data, i8** %data.addr, align 2
  store i16 %length, i16* %length.addr, align 2
  %0 = load i8*, i8** %data.addr, align 2
  %1 = load i16, i16* %length.addr, align 2
  %call = call i16 @_ZN3crc2ofEPKhi(i8* %0, i16 %1)
  %2 = load i8*, i8** %data.addr, align 2
  %3 = load i16, i16* %length.addr, align 2
  %call1 = call i16 @_ZN3crc4slowEPKhi(i8* %2, i16 %3)
  %cmp = icmp eq i16 %call, %call1
  ret i1 %cmp
}

attributes #0 = { mustprogress noinline nounwind optnone "frame-pointer"="none" "min-legal-vector-width"="0" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }
attributes #1 = { argmemonly nofree nounwind willreturn }

!llvm.module.flags = !{!0, !1, !2}
!llvm.ident = !{!3}

!0 = !{i32 1, !"SemanticInterposition", i32 1}
!1 = !{i32 1, !"wchar_size", i32 2}
!2 = !{i32 7, !"PIC Level", i32 2}
!3 = !{!"Debian clang version 14.0.6"}
!4 = distinct !{!4, !5}
!5 = !{!"llvm.loop.mustprogress"}
!6 = distinct !{!6, !5}
!7 = distinct !{!7, !5}
!8 = distinct !{!8, !5}
