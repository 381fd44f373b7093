source_filename = "crc.cpp"
declare { %struct.unnamed_3*, %struct.unnamed_2*, %struct.unnamed_5*, %struct.unnamed_4*, %struct.unnamed_1* } @llvm.dbg.order()
%struct.Frame = type { i8, i8, [12 x i8], i16 }
%struct.unnamed_1 = type { %struct.unnamed_2, %struct.unnamed_4 }
%struct.unnamed_2 = type { i8, i8, %struct.unnamed_3, i16 }
%struct.unnamed_3 = type { i8, i8, i8, i8, [8 x i8] }
%struct.unnamed_4 = type { i8, i8, %struct.unnamed_5, i16 }
%struct.unnamed_5 = type { i8, i8, i8, [9 x i8] }
@_ZN3crcL5stepsE = internal constant [16 x i16] [i16 0, i16 4129, i16 8258, i16 12387, i16 16516, i16 20645, i16 24774, i16 28903, i16 -32504, i16 -28375, i16 -24246, i16 -20117, i16 -15988, i16 -11859, i16 -7730, i16 -3601]
@_ZL7samples = internal constant %struct.unnamed_1 { %struct.unnamed_2 { i8 1, i8 4, %struct.unnamed_3 { i8 112, i8 105, i8 110, i8 103, [8 x i8] zeroinitializer }, i16 0 }, %struct.unnamed_4 { i8 2, i8 3, %struct.unnamed_5 { i8 1, i8 2, i8 3, [9 x i8] zeroinitializer }, i16 -21075 } }
declare void @llvm.dbg.declare(metadata, metadata, metadata)
declare void @llvm.memcpy.p0i8.p0i8.i16(i8*, i8*, i16, i1)
define i16 @_ZN3crc3addEjh(i16 %sum, i8 zeroext %data) {
entry:
  %sum.addr = alloca i16
  %data.addr = alloca i8
  %0 = load i16, i16* %sum.addr
  %1 = lshr i16 %0, 12
  %2 = load i8, i8* %data.addr
  %3 = zext i8 %2 to i16
  %4 = ashr i16 %3, 4
  %5 = xor i16 %1, %4
  %6 = getelementptr inbounds [16 x i16], [16 x i16]* @_ZN3crcL5stepsE, i16 0, i16 %5
  %7 = load i16, i16* %6
  %8 = load i16, i16* %sum.addr
  %9 = shl i16 %8, 4
  %10 = xor i16 %7, %9
  store i16 %10, i16* %sum.addr
  %11 = load i16, i16* %sum.addr
  %12 = lshr i16 %11, 12
  %13 = load i8, i8* %data.addr
  %14 = zext i8 %13 to i16
  %15 = and i16 %14, 15
  %16 = xor i16 %12, %15
  %17 = getelementptr inbounds [16 x i16], [16 x i16]* @_ZN3crcL5stepsE, i16 0, i16 %16
  %18 = load i16, i16* %17
  %19 = load i16, i16* %sum.addr
  %20 = shl i16 %19, 4
  %21 = xor i16 %18, %20
  ret i16 %21
}

define i16 @_ZN3crc2ofEPKhi(i8* %data, i16 %length) {
entry:
  %data.addr = alloca i8*
  %length.addr = alloca i16
  %sum = alloca i16
  store i16 -1, i16* %sum
  br label %while.cond0

while.cond0:
  %0 = load i16, i16* %length.addr
  %dec.0 = add i16 %0, -1
  store i16 %dec.0, i16* %length.addr
  %1 = icmp sgt i16 %0, 0
  br i1 %1, label %while.body0, label %while.end0

while.body0:
  %2 = load i16, i16* %sum
  %3 = load i8*, i8** %data.addr
  %incdec.ptr.1 = getelementptr inbounds i8, i8* %3, i32 1
  store i8* %incdec.ptr.1, i8** %data.addr
  %4 = load i8, i8* %3
  %5 = call i16 @_ZN3crc3addEjh(i16 %2, i8 %4)
  store i16 %5, i16* %sum
  br label %while.cond0

while.end0:
  %6 = load i16, i16* %sum
  ret i16 %6
}

define i16 @_ZN3crc4slowEPKhi(i8* %data, i16 %length) {
entry:
  %data.addr = alloca i8*
  %length.addr = alloca i16
  %sum = alloca i16
  %i = alloca i16
  %bit = alloca i16
  store i16 -1, i16* %sum
  store i16 0, i16* %i
  br label %for.cond0

for.cond0:
  %0 = load i16, i16* %i
  %1 = load i16, i16* %length.addr
  %2 = icmp slt i16 %0, %1
  br i1 %2, label %for.body0, label %for.end0

for.body0:
  %3 = load i16, i16* %sum
  %4 = load i8*, i8** %data.addr
  %5 = load i16, i16* %i
  %6 = getelementptr inbounds i8, i8* %4, i16 %5
  %7 = load i8, i8* %6
  %8 = zext i8 %7 to i16
  %9 = shl i16 %8, 8
  %10 = xor i16 %3, %9
  store i16 %10, i16* %sum
  store i16 0, i16* %bit
  br label %for.cond1

for.cond1:
  %11 = load i16, i16* %bit
  %12 = icmp slt i16 %11, 8
  br i1 %12, label %for.body1, label %for.end1

for.body1:
  %13 = load i16, i16* %sum
  %14 = and i16 %13, -32768
  %15 = icmp ne i16 %14, 0
  br i1 %15, label %if.then2, label %if.else2

if.then2:
  %16 = load i16, i16* %sum
  %17 = shl i16 %16, 1
  %18 = xor i16 %17, 4129
  store i16 %18, i16* %sum
  br label %if.end2

if.else2:
  %19 = load i16, i16* %sum
  %20 = shl i16 %19, 1
  store i16 %20, i16* %sum
  br label %if.end2

if.end2:
  br label %for.inc1

for.inc1:
  %21 = load i16, i16* %bit
  %22 = add i16 %21, 1
  store i16 %22, i16* %bit
  br label %for.cond1

for.end1:
  br label %for.inc0

for.inc0:
  %23 = load i16, i16* %i
  %24 = add i16 %23, 1
  store i16 %24, i16* %i
  br label %for.cond0

for.end0:
  %25 = load i16, i16* %sum
  ret i16 %25
}

define i16 @fletcher(i8* %data, i16 %length) {
entry:
  %data.addr = alloca i8*
  %length.addr = alloca i16
  %low = alloca i16
  %high = alloca i16
  %i = alloca i16
  store i16 0, i16* %low
  store i16 0, i16* %high
  store i16 0, i16* %i
  br label %for.cond0

for.cond0:
  %0 = load i16, i16* %i
  %1 = load i16, i16* %length.addr
  %2 = icmp slt i16 %0, %1
  br i1 %2, label %for.body0, label %for.end0

for.body0:
  %3 = load i16, i16* %low
  %4 = load i8*, i8** %data.addr
  %5 = load i16, i16* %i
  %6 = getelementptr inbounds i8, i8* %4, i16 %5
  %7 = load i8, i8* %6
  %8 = zext i8 %7 to i16
  %9 = add i16 %3, %8
  %10 = urem i16 %9, 255
  store i16 %10, i16* %low
  %11 = load i16, i16* %high
  %12 = load i16, i16* %low
  %13 = add i16 %11, %12
  %14 = urem i16 %13, 255
  store i16 %14, i16* %high
  br label %for.inc0

for.inc0:
  %15 = load i16, i16* %i
  %16 = add i16 %15, 1
  store i16 %16, i16* %i
  br label %for.cond0

for.end0:
  %17 = load i16, i16* %high
  %18 = shl i16 %17, 8
  %19 = load i16, i16* %low
  %20 = or i16 %18, %19
  ret i16 %20
}

define i16 @count_good() {
entry:
  %count = alloca i16
  %__range1 = alloca [2 x %struct.Frame]*
  %__begin1 = alloca %struct.Frame*
  %__end1 = alloca %struct.Frame*
  %sample = alloca %struct.Frame*
  %agg_tmp = alloca %struct.Frame
  store i16 0, i16* %count
  store [2 x %struct.Frame]* bitcast (%struct.unnamed_1* @_ZL7samples to [2 x %struct.Frame]*), [2 x %struct.Frame]** %__range1
  store %struct.Frame* getelementptr ([2 x %struct.Frame], [2 x %struct.Frame]* bitcast (%struct.unnamed_1* @_ZL7samples to [2 x %struct.Frame]*), i16 0, i16 0), %struct.Frame** %__begin1
  store %struct.Frame* getelementptr ([2 x %struct.Frame], [2 x %struct.Frame]* bitcast (%struct.unnamed_1* @_ZL7samples to [2 x %struct.Frame]*), i64 1, i16 0), %struct.Frame** %__end1
  br label %for.cond0

for.cond0:
  %0 = load %struct.Frame*, %struct.Frame** %__begin1
  %1 = load %struct.Frame*, %struct.Frame** %__end1
  %2 = icmp ne %struct.Frame* %0, %1
  br i1 %2, label %for.body0, label %for.end0

for.body0:
  %3 = load %struct.Frame*, %struct.Frame** %__begin1
  store %struct.Frame* %3, %struct.Frame** %sample
  %4 = load %struct.Frame*, %struct.Frame** %sample
  %5 = load %struct.Frame, %struct.Frame* %4
  store %struct.Frame %5, %struct.Frame* %agg_tmp
  %6 = call i16 @_ZL5check5Frame(%struct.Frame* %agg_tmp)
  %7 = icmp eq i16 %6, 0
  br i1 %7, label %if.then1, label %if.end1

if.then1:
  %8 = load i16, i16* %count
  %9 = add i16 %8, 1
  store i16 %9, i16* %count
  br label %if.end1

if.end1:
  br label %for.inc0

for.inc0:
  %10 = load %struct.Frame*, %struct.Frame** %__begin1
  %11 = getelementptr inbounds %struct.Frame, %struct.Frame* %10, i32 1
  store %struct.Frame* %11, %struct.Frame** %__begin1
  br label %for.cond0

for.end0:
  %12 = load i16, i16* %count
  ret i16 %12
}

define internal i16 @_ZL5check5Frame(%struct.Frame* %frame) {
entry:
  %frame.addr = alloca %struct.Frame*
  %call = alloca i16
  %0 = load %struct.Frame*, %struct.Frame** %frame.addr
  %1 = getelementptr inbounds %struct.Frame, %struct.Frame* %0, i32 0, i32 1
  %2 = load i8, i8* %1
  %3 = zext i8 %2 to i16
  %4 = icmp ugt i16 %3, 12
  br i1 %4, label %if.then0, label %if.end0

if.then0:
  ret i16 1

if.end0:
  %5 = load %struct.Frame*, %struct.Frame** %frame.addr
  %6 = getelementptr inbounds %struct.Frame, %struct.Frame* %5, i32 0, i32 2
  %7 = getelementptr inbounds [12 x i8], [12 x i8]* %6, i16 0, i16 0
  %8 = load %struct.Frame*, %struct.Frame** %frame.addr
  %9 = getelementptr inbounds %struct.Frame, %struct.Frame* %8, i32 0, i32 1
  %10 = load i8, i8* %9
  %11 = zext i8 %10 to i16
  %12 = call i16 @_ZN3crc2ofEPKhi(i8* %7, i16 %11)
  store i16 %12, i16* %call
  %13 = load i16, i16* %call
  %14 = load %struct.Frame*, %struct.Frame** %frame.addr
  %15 = getelementptr inbounds %struct.Frame, %struct.Frame* %14, i32 0, i32 3
  %16 = load i16, i16* %15
  %17 = icmp eq i16 %13, %16
  %18 = select i1 %17, i16 0, i16 2
  ret i16 %18
}

define zeroext i1 @tables_agree(i8* %data, i16 %length) {
entry:
  %data.addr = alloca i8*
  %length.addr = alloca i16
  %call = alloca i16
  %0 = load i8*, i8** %data.addr
  %1 = load i16, i16* %length.addr
  %2 = call i16 @_ZN3crc2ofEPKhi(i8* %0, i16 %1)
  store i16 %2, i16* %call
  %3 = load i16, i16* %call
  %4 = load i8*, i8** %data.addr
  %5 = load i16, i16* %length.addr
  %6 = call i16 @_ZN3crc4slowEPKhi(i8* %4, i16 %5)
  %7 = icmp eq i16 %3, %6
  ret i1 %7
}

